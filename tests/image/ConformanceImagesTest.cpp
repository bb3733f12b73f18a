// The image files of the conformance folder, read as its list says: from a file and from a buffer of exactly their
// size, whole, cut off at every byte, and with bytes changed.

#include <filesystem>
#include <optional>
#include <set>

#include "embedded/JsonReader.h"
#include "image/ImageFileType.h"
#include "tests/image/ImageTest.h"

namespace {

using embedded::JsonReader;
using image::FileImage;
using imagetest::Bytes;

struct Copy {
  int width = 0;
  int height = 0;
  Bytes rgb;
  Bytes rgba;
};

/// One entry of the list. What is null or missing there is not checked.
struct ImageCase {
  std::string file;
  std::string reader;
  int type = -1;
  std::optional<bool> isOk;
  std::optional<int> width;
  std::optional<int> height;
  std::optional<Bytes> transparency;  // none when there is none
  std::optional<Bytes> rgb;
  std::optional<Bytes> rgba;
  std::vector<Copy> resampled;
};

std::string pathOf(const std::string& file) { return std::string(IMAGE_CASES) + "/" + file; }

unsigned hexDigit(char digit) {
  const std::size_t value = std::string_view("0123456789abcdef").find(digit);
  if (value == std::string_view::npos) throw std::runtime_error("no hexadecimal digit");
  return static_cast<unsigned>(value);
}

Bytes fromHex(const std::string& text) {
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2)
    bytes.push_back(static_cast<std::uint8_t>(hexDigit(text[i]) << 4 | hexDigit(text[i + 1])));
  return bytes;
}

/// Whether a value is there; takes the null that is there instead.
bool hasValue(JsonReader& json) {
  if (json.kind() != JsonReader::Kind::Null) return true;
  json.takeNull();
  return false;
}

int takeInt(JsonReader& json) { return static_cast<int>(json.takeInteger(0, 1'000'000)); }

Bytes takeColor(JsonReader& json) {
  Bytes color;
  for (json.enterList(); json.nextItem();) color.push_back(static_cast<std::uint8_t>(json.takeInteger(0, 255)));
  return color;
}

Copy takeCopy(JsonReader& json) {
  Copy copy;
  std::string key;
  for (json.enterObject(); json.nextKey(key);) {
    if (key == "width") {
      copy.width = takeInt(json);
    } else if (key == "height") {
      copy.height = takeInt(json);
    } else if (key == "rgb") {
      copy.rgb = fromHex(json.takeText());
    } else if (key == "rgba") {
      copy.rgba = fromHex(json.takeText());
    } else {
      json.fail("unknown key");
    }
  }
  return copy;
}

void takeMember(JsonReader& json, const std::string& key, ImageCase& row) {
  if (key == "file") {
    row.file = json.takeText();
  } else if (key == "type") {
    row.type = takeInt(json);
  } else if (key == "why" || key == "onlyEndsCleanly") {
    static_cast<void>(json.takeText());
  } else if (key == "resampled") {
    for (json.enterList(); json.nextItem();) row.resampled.push_back(takeCopy(json));
  } else if (!hasValue(json)) {
    return;
  } else if (key == "reader") {
    row.reader = json.takeText();
  } else if (key == "isOk") {
    row.isOk = json.takeBoolean();
  } else if (key == "width") {
    row.width = takeInt(json);
  } else if (key == "height") {
    row.height = takeInt(json);
  } else if (key == "transparency") {
    row.transparency = takeColor(json);
  } else if (key == "rgb") {
    row.rgb = fromHex(json.takeText());
  } else if (key == "rgbFile") {
    row.rgb = imagetest::contentOf(pathOf(json.takeText()));
  } else if (key == "rgba") {
    row.rgba = fromHex(json.takeText());
  } else {
    json.fail("unknown key");
  }
}

std::vector<ImageCase> readCases() {
  std::vector<ImageCase> rows;
  const Bytes list = imagetest::contentOf(pathOf("images.json"));
  JsonReader json(std::string_view(reinterpret_cast<const char*>(list.data()), list.size()));
  std::string key;
  for (json.enterObject(); json.nextKey(key);) {
    if (key == "note") {
      static_cast<void>(json.takeText());
      continue;
    }
    for (json.enterList(); json.nextItem();) {
      ImageCase& row = rows.emplace_back();
      for (json.enterObject(); json.nextKey(key);) takeMember(json, key, row);
    }
  }
  json.finish();
  return rows;
}

/// A reader of the case's class over a path or bytes; null for a file that none reads.
template <typename Source>
std::unique_ptr<const FileImage> makeReader(const ImageCase& row, const Source& source) {
  if (row.reader == "FileGIF89a") return std::make_unique<image::FileGIF89a>(source);
  if (row.reader == "FileTarga") return std::make_unique<image::FileTarga>(source);
  EXPECT_EQ(row.reader, "");
  return nullptr;
}

/// Touches every byte that a reader offers, for the sanitizer to see.
void useAll(const FileImage& reader) {
  const Bytes pixels = imagetest::pixelsOf(reader);
  const image::PixelArray small = reader.getRGBAImage(7, 5);
  EXPECT_EQ(small != nullptr, reader.isOk());
}

void checkImage(const FileImage& reader, const ImageCase& row) {
  useAll(reader);
  EXPECT_EQ(reader.getFileType(), row.reader == "FileTarga" ? 3 : 1);
  if (!row.isOk) return;
  ASSERT_EQ(reader.isOk(), *row.isOk);
  if (!*row.isOk) return;
  // An entry that names an image says all of it.
  ASSERT_TRUE(row.width && row.height && row.rgb);
  EXPECT_EQ(reader.getWidth(), *row.width);
  EXPECT_EQ(reader.getHeight(), *row.height);
  EXPECT_EQ(imagetest::pixelsOf(reader), *row.rgb);
  ASSERT_EQ(reader.hasTransparencyColor(), row.transparency.has_value());
  if (row.transparency) {
    Bytes color(3);
    reader.getTransparencyColor(std::span<std::uint8_t, 3>(color.data(), 3));
    EXPECT_EQ(color, *row.transparency);
  }
  if (row.rgba) {
    EXPECT_EQ(imagetest::bytesOf(reader.getRGBAImage().get(), row.rgba->size()), *row.rgba);
  }
  for (const Copy& copy : row.resampled) {
    SCOPED_TRACE("as " + std::to_string(copy.width) + " x " + std::to_string(copy.height));
    ASSERT_EQ(copy.rgb.size(), static_cast<std::size_t>(3 * copy.width * copy.height));
    ASSERT_EQ(copy.rgba.size(), static_cast<std::size_t>(4 * copy.width * copy.height));
    EXPECT_EQ(imagetest::bytesOf(reader.getImage(copy.width, copy.height).get(), copy.rgb.size()), copy.rgb);
    EXPECT_EQ(imagetest::bytesOf(reader.getRGBAImage(copy.width, copy.height).get(), copy.rgba.size()), copy.rgba);
  }
}

TEST(ConformanceImages, read_as_listed) {
  const std::vector<ImageCase> rows = readCases();
  std::set<std::string> unlisted;
  for (const auto& entry : std::filesystem::directory_iterator(IMAGE_CASES)) {
    const std::string name = entry.path().filename().string();
    if (!name.ends_with(".json") && !name.ends_with(".rgb")) unlisted.insert(name);
  }
  const std::set<std::string> files = unlisted;
  EXPECT_GE(files.size(), 50u);
  for (const ImageCase& row : rows) {
    SCOPED_TRACE(row.file);
    EXPECT_EQ(files.contains(row.file), !row.file.starts_with("missing")) << "in the folder, or not";
    unlisted.erase(row.file);
    const std::string path = pathOf(row.file);
    EXPECT_EQ(image::getImageFileType(path), row.type);
    if (const auto reader = makeReader(row, path)) checkImage(*reader, row);
    const imagetest::ExactBuffer buffer(imagetest::contentOf(path));
    if (const auto reader = makeReader(row, buffer.span())) checkImage(*reader, row);
  }
  EXPECT_EQ(unlisted, std::set<std::string>{});
}

TEST(ConformanceImages, are_whole_or_empty_when_cut_off) {
  for (const ImageCase& row : readCases()) {
    SCOPED_TRACE(row.file);
    imagetest::forEveryCutOff(imagetest::contentOf(pathOf(row.file)), [&](std::span<const std::uint8_t> cut) {
      const auto reader = makeReader(row, cut);
      if (!reader) return;
      useAll(*reader);
      if (row.isOk && reader->isOk()) {
        EXPECT_TRUE(*row.isOk);
        EXPECT_EQ(imagetest::pixelsOf(*reader), row.rgb);
      }
    });
  }
}

TEST(ConformanceImages, end_cleanly_when_bytes_are_changed) {
  for (const ImageCase& row : readCases()) {
    SCOPED_TRACE(row.file);
    const Bytes whole = imagetest::contentOf(pathOf(row.file));
    const std::size_t step = whole.size() > 1000 ? 97 : 1;
    for (std::size_t at = 0; at < whole.size(); at += step) {
      for (const int change : {0x01, 0x04, 0x40, 0x80, 0xFF}) {
        Bytes changed = whole;
        changed[at] = static_cast<std::uint8_t>(changed[at] ^ change);
        const imagetest::ExactBuffer buffer(changed);
        if (const auto reader = makeReader(row, buffer.span())) static_cast<void>(reader->getRGBAImage(7, 5));
      }
    }
  }
}

}  // namespace
