// A host with a part of its own. The module leaves every call to its host undefined, so each is bound to whoever in the
// process defines it, the program before its libraries. What is defined here takes the place of the embedded host's
// search for files: worlds come from the program's own list. A host that replaces the whole of libvekhost in this way
// need not link it any more.

#include <VekSG/sglNode.h>
#include <VekSGdb/sglDataLoader.h>
#include <embedded/MessageSink.h>
#include <embedded/ModuleLoader.h>

#include <iostream>
#include <map>

static std::map<std::string, std::string> shelf;  // names that the program gives, and the files that they mean

bool sglDataLoader::findFile(const std::string& name, const char* /*directory*/, std::string& found) {
  const auto entry = shelf.find(name);
  if (entry == shelf.end()) return false;
  found = entry->second;
  return true;
}

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) return 2;
  shelf["the world"] = arguments[1];
  embedded::setMessageSink([](unsigned, std::string_view) {});  // this host keeps quiet
  embedded::ModuleLoader module;
  if (!module.open(embedded::ModuleLoader::pathBesideHost())) return 2;
  const std::unique_ptr<CVekDBRoot> database = module.loadModel("the world");
  std::cout << (database->GetSglRoot() != nullptr ? "found\n" : "not found\n");
}
