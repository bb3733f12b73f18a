// The counts stand behind the list only where somebody did not name each file: a list of a few names is its own
// summary.

#include "tools/wrl/Listing.h"

#include <string>

#include "embedded/JsonWriter.h"

namespace wrl {

namespace {

void writeText(std::ostream& out, const Tally& tally) {
  const std::int64_t files = tally.ok + tally.failed;
  out << std::to_string(files) << (files == 1 ? " file: " : " files: ") << std::to_string(tally.ok) << " ok";
  if (tally.withNotes > 0) out << " (" << std::to_string(tally.withNotes) << " with notes)";
  out << ", " << std::to_string(tally.failed) << " failed\n";
}

void writeJson(std::ostream& out, const Tally& tally) {
  {
    embedded::JsonWriter json(out);
    json.beginObject();
    json.key("summary");
    json.beginObject();
    json.key("files");
    json.integer(tally.ok + tally.failed);
    json.key("ok");
    json.integer(tally.ok);
    json.key("withNotes");
    json.integer(tally.withNotes);
    json.key("failed");
    json.integer(tally.failed);
    json.endObject();
    json.endObject();
  }
  out << '\n';
}

}  // namespace

void addListing(CLI::App& app, ListingOptions& options) {
  app.add_flag("--json", options.json, "Print one JSON document a line");
  app.add_flag("--summary", options.summary, "Print the counts behind the list, as when a folder is in it");
}

void writeTally(std::ostream& out, const Tally& tally, const ListingOptions& options) {
  options.json ? writeJson(out, tally) : writeText(out, tally);
}

}  // namespace wrl
