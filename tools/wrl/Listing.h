#pragma once

// What the subcommands that go over several files have in common: the form of their list, and its last line.

#include <CLI/App.hpp>
#include <cstdint>
#include <ostream>

namespace wrl {

/// How a list of files is printed.
struct ListingOptions {
  bool json = false;     // --json: one JSON document a line, instead of text for people
  bool summary = false;  // --summary: counts behind the list, also when no folder is in it
};

/// Declares the options.
void addListing(CLI::App& app, ListingOptions& options);

/// Files by their fate.
struct Tally {
  std::int64_t ok = 0;
  std::int64_t failed = 0;
  std::int64_t withNotes = 0;  // of those that are ok
};

/// Writes `3 files: 2 ok (1 with notes), 1 failed`, or the same as one line of JSON,
/// `{"summary":{"files":3,"ok":2,"withNotes":1,"failed":1}}`.
void writeTally(std::ostream& out, const Tally& tally, const ListingOptions& options);

}  // namespace wrl
