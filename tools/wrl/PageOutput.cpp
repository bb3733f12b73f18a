// The page holds the model as binary glTF. A world is read a second time, by the front end that is linked into this
// program: what its author wrote for visitors does not reach the host.

#include "tools/wrl/PageOutput.h"

#include <sstream>
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

constexpr std::size_t kMostViews = 200;  // more buttons than anybody looks through

void append(std::vector<embedded::PageView>& views, std::vector<embedded::PageView> more) {
  views.insert(views.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::string withoutLineEnd(std::string text) {
  text.erase(text.find_last_not_of("\r\n") + 1);
  return text;
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
  for (const std::string& message : source.messages) content.messages.push_back(withoutLineEnd(message));
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
  content.messages.insert(content.messages.end(), notes.all().begin(), notes.all().end());
  Output output(job.path);
  embedded::writePage(embedded::pageTemplate(), content, glb.view(), output.stream());
  if (!output.finish()) return output.reason();
  reportNotes(notes, job);
  return "";
}

}  // namespace wrl
