// Both forms are made of the same report, so that neither knows more than the other.

#include "tools/wrl/CheckReport.h"

#include "embedded/JsonWriter.h"
#include "vrml/reader/Notes.h"
#include "vrml/reader/SceneGraph.h"

namespace wrl {

namespace {

std::string withPlace(const CheckNote& note) {
  if (note.line <= 0) return note.text;
  const std::string file = note.inlineFile.empty() ? "" : " of " + note.inlineFile;
  return note.text + " (line " + std::to_string(note.line) + file + ")";
}

std::string stateLine(const CheckReport& report) {
  switch (report.state) {
    case CheckReport::State::ok:
      return report.file + ": ok";
    case CheckReport::State::error:
      return report.file + ":" + std::to_string(report.line) + ": error at or about \"" + report.token +
             "\": " + report.lineText;
    case CheckReport::State::unreadable:
      break;
  }
  return report.reason.empty() ? report.file + ": error: cannot be opened" : report.reason;
}

const char* stateWord(CheckReport::State state) {
  switch (state) {
    case CheckReport::State::ok:
      return "ok";
    case CheckReport::State::error:
      return "error";
    case CheckReport::State::unreadable:
      break;
  }
  return "unreadable";
}

void writeKey(embedded::JsonWriter& json, const char* key, const std::string& text) {
  json.key(key);
  json.text(text);
}

void writeKeyUnlessEmpty(embedded::JsonWriter& json, const char* key, const std::string& text) {
  if (!text.empty()) writeKey(json, key, text);
}

void writeNote(embedded::JsonWriter& json, const CheckNote& note) {
  json.beginObject();
  writeKey(json, "text", note.text);
  if (note.line > 0) {
    json.key("line");
    json.integer(note.line);
  }
  writeKeyUnlessEmpty(json, "inlineFile", note.inlineFile);
  writeKeyUnlessEmpty(json, "node", note.nodeType);
  writeKeyUnlessEmpty(json, "def", note.defName);
  json.endObject();
}

}  // namespace

void describeReading(CheckReport& report, const vrml::SceneGraph& scene) {
  if (scene.succeeded()) return;
  report.line = scene.getErrorLine();
  report.state = report.line == 0 ? CheckReport::State::unreadable : CheckReport::State::error;
  report.token = scene.getErrorToken();
  report.lineText = scene.getErrorLineText();
}

void describeNotes(CheckReport& report, const vrml::SceneGraph& scene, const AuditOptions& options) {
  for (const vrml::Note& note : scene.notes()) {
    report.notes.push_back({vrml::noteText(note), note.line, note.file, note.nodeType, note.defName});
  }
  for (const AuditNote& note : auditImport(scene, options)) {
    report.notes.push_back({auditText(note), 0, "", note.nodeType, note.defName});
  }
}

void writeText(std::ostream& out, const CheckReport& report, bool wantsOk, bool wantsNotes) {
  if (wantsOk || !report.isRead()) out << stateLine(report) << '\n';
  if (!report.kind.empty()) out << report.file << ": error: this is " << report.kind << '\n';
  if (!wantsNotes) return;
  for (const CheckNote& note : report.notes) out << report.file << ": note: " << withPlace(note) << '\n';
}

void writeJson(std::ostream& out, const CheckReport& report) {
  {
    embedded::JsonWriter json(out);
    json.beginObject();
    writeKey(json, "file", report.file);
    writeKey(json, "status", stateWord(report.state));
    if (report.state == CheckReport::State::error) {
      json.key("line");
      json.integer(report.line);
      writeKey(json, "token", report.token);
      writeKey(json, "text", report.lineText);
      writeKeyUnlessEmpty(json, "kind", report.kind);
    }
    json.key("notes");
    json.beginList();
    for (const CheckNote& note : report.notes) writeNote(json, note);
    json.endList();
    json.endObject();
  }
  out << '\n';
}

}  // namespace wrl
