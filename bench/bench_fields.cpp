// How fast does each kind of field take its value from text, and give it back as text? Lists, of a thousand values
// each, are filled by the grammar and not from text: what `bench_lexer` and `bench_read` measure.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "vrml/fields/Fields.h"

namespace {

// A single value as text, of the length that exporters write.
struct Single {
  vrml::FieldType type;
  const char* text;
};

constexpr Single kSingles[] = {
    {vrml::FieldType::SFBool, "TRUE"},
    {vrml::FieldType::SFFloat, "0.734512"},
    {vrml::FieldType::SFInt32, "734512"},
    {vrml::FieldType::SFVec2f, "0.25 13.625"},
    {vrml::FieldType::SFVec3f, "0.25 13.625 -7.128"},
    {vrml::FieldType::SFString, "a text of some length"},
    {vrml::FieldType::SFColor, "0.25 0.5 1"},
    {vrml::FieldType::SFTime, "1234567.25"},
    {vrml::FieldType::SFRotation, "0 1 0 1.5708"},
};

constexpr int kListLength = 1'000;

void readSingle(benchmark::State& state, const Single& single) {
  const std::unique_ptr<vrml::Field> field = vrml::makeField(single.type);
  for (auto _ : state) {
    field->setValue(single.text);
    benchmark::DoNotOptimize(field.get());
  }
}

void write(benchmark::State& state, const vrml::Field& field) {
  std::string out;
  std::size_t bytes = 0;
  for (auto _ : state) {
    out.clear();
    field.appendVrml(out);
    bytes += out.size();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void writeSingle(benchmark::State& state, const Single& single) {
  const std::unique_ptr<vrml::Field> field = vrml::makeField(single.type);
  field->setValue(single.text);
  write(state, *field);
}

// Values of a few decimals each.
template <class List>
std::vector<typename List::Component> someValues() {
  std::vector<typename List::Component> values(kListLength * List::kComponents);
  for (std::size_t i = 0; i < values.size(); ++i)
    values[i] = static_cast<typename List::Component>(static_cast<double>(i % 997) * 0.125);
  return values;
}

template <class List>
void writeList(benchmark::State& state) {
  List list;
  list.setValues(kListLength, someValues<List>().data());
  write(state, list);
}

template <class List>
void copyList(benchmark::State& state) {
  List list;
  list.setValues(kListLength, someValues<List>().data());
  for (auto _ : state) {
    List copy;
    copy.setValue(&list);
    benchmark::DoNotOptimize(copy.getSize());
  }
  state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) * kListLength);
}

template <class List>
void addList() {
  const std::string name = vrml::fieldTypeName(List().getType());
  benchmark::RegisterBenchmark(("write/" + name).c_str(), writeList<List>);
  benchmark::RegisterBenchmark(("copy/" + name).c_str(), copyList<List>);
}

}  // namespace

int main(int argc, char** argv) {
  for (const Single& single : kSingles) {
    const std::string name = vrml::fieldTypeName(single.type);
    benchmark::RegisterBenchmark(("read/" + name).c_str(), readSingle, single);
    benchmark::RegisterBenchmark(("write/" + name).c_str(), writeSingle, single);
  }
  addList<vrml::MFFloat>();
  addList<vrml::MFInt32>();
  addList<vrml::MFVec2f>();
  addList<vrml::MFVec3f>();
  addList<vrml::MFColor>();
  addList<vrml::MFTime>();
  addList<vrml::MFRotation>();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
