// The page holds the model as binary glTF. A world is read a second time, by the front end that is linked into this
// program: what its author wrote for visitors does not reach the host.

#include "tools/wrl/PageOutput.h"

#include <filesystem>
#include <sstream>
#include <system_error>
#include <utility>

#include "embedded/AssemblyWalk.h"
#include "embedded/Paths.h"
#include "embedded/meshes/GlbWriter.h"
#include "embedded/pages/Page.h"
#include "embedded/pages/PageTemplate.h"
#include "tools/wrl/Input.h"
#include "tools/wrl/MeshOutput.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/StageInput.h"
#include "tools/wrl/WorldViews.h"

namespace wrl {

namespace {

constexpr std::size_t kMostViews = 200;     // more buttons than anybody looks through
constexpr std::size_t kMostMessages = 500;  // a broken world has one for each shape

void append(std::vector<embedded::PageView>& views, std::vector<embedded::PageView> more) {
  views.insert(views.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::string withoutLineEnd(std::string text) {
  text.erase(text.find_last_not_of("\r\n") + 1);
  return text;
}

// A page goes to others, whom the author's folders do not concern.
std::string withoutFolder(std::string text, const std::string& folder) {
  if (folder.size() <= 1) return text;
  for (std::size_t at = text.find(folder); at != std::string::npos; at = text.find(folder, at)) {
    text.erase(at, folder.size());
  }
  return text;
}

void append(std::vector<std::string>& messages, const std::vector<std::string>& more, const WriteJob& job) {
  const bool isFile = job.source != nullptr && !isStandardInput(job.source->file);
  std::error_code error;
  const std::string from =
      isFile ? embedded::folderOf(std::filesystem::absolute(job.source->file, error).string()) : "";
  for (const std::string& message : more) messages.push_back(withoutFolder(withoutLineEnd(message), from));
}

void cutOff(std::vector<std::string>& messages) {
  if (messages.size() <= kMostMessages) return;
  const std::size_t more = messages.size() - kMostMessages;
  messages.resize(kMostMessages);
  messages.push_back("and " + std::to_string(more) + " more");
}

embedded::PageContent contentOf(const WriteJob& job) {
  embedded::PageContent content;
  content.triangleCount = embedded::assemblyTriangleCount(job.stager.GetSceneManager()->GetAssyRoot());
  content.views = embedded::usualViews();
  append(content.views, embedded::savedPageViews(job.stager));
  if (job.source == nullptr) return content;
  const JobSource& source = *job.source;
  content.file = isStandardInput(source.file) ? "" : embedded::fileNameOf(source.file);
  content.title = content.file;
  append(content.messages, source.messages, job);
  if (readerOf(source.file)->read != readWorld) return content;
  WorldViews world = readWorldViews(source.file, source.options, kMostViews);
  append(content.views, std::move(world.views));
  if (!world.title.empty()) content.title = std::move(world.title);
  return content;
}

}  // namespace

std::string writePage(const WriteJob& job) {
  const CVekAssyRoot* const root = job.stager.GetSceneManager()->GetAssyRoot();
  if (root == nullptr) return kNoAssembly;
  std::ostringstream glb;
  embedded::MeshNotes notes;
  std::string error;
  if (!embedded::writeGlb(*root, glb, notes, error)) return error;
  if (glb.view().size() > embedded::kMostPageModelBytes)
    return "the model is too large for a page, which ends at 256 MiB";
  embedded::PageContent content = contentOf(job);
  if (content.title.empty()) content.title = embedded::fileNameOf(job.path);
  append(content.messages, notes.all(), job);
  cutOff(content.messages);
  Output output(job.path);
  embedded::writePage(embedded::pageTemplate(), content, glb.view(), output.stream());
  if (!output.finish()) return output.reason();
  reportNotes(notes, job);
  return "";
}

}  // namespace wrl
