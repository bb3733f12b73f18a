#include "tools/wrl/PictureOutput.h"

#include <iostream>
#include <vector>

#include "embedded/Paths.h"
#include "embedded/images/ImageCodecs.h"
#include "embedded/images/ImageFile.h"
#include "tools/wrl/Descriptors.h"
#include "tools/wrl/Output.h"
#include "tools/wrl/PictureMark.h"

namespace wrl {

namespace {

// Takes a picture and writes it; why it could not, or "".
std::string takeAndWrite(const PictureSource& source, const embedded::PictureView& view,
                         const embedded::PictureFormat& format, const std::string& path) {
  embedded::PictureResult picture;
  {
    const StandardOutputAside aside;  // drivers are talkative
    picture = embedded::takePicture(source.subject, view, format, source.readsImages);
  }
  if (!picture.error.empty()) return picture.error;
  std::vector<std::uint8_t> file;
  if (!embedded::writePng(picture.raster, file)) return "no PNG file came of it";
  if (embedded::wasReadAsTexture(path)) return kImageOfModel;
  markPicture(file);
  if (picture.isEmpty) std::cerr << source.name << ": there is nothing to see\n";
  Output output(path);
  output.stream().write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
  return output.finish() ? "" : output.reason();
}

}  // namespace

ExitStatus deliverPicture(const PictureSource& source, const PictureOptions& options, const std::string& path) {
  std::string error;
  const std::optional<embedded::PictureView> view = chooseView(options, source.stager, error);
  if (!view) {
    std::cerr << source.name << ": error: " << error << '\n';
    return ExitStatus::usage;
  }
  error = takeAndWrite(source, *view, options.format, path);
  if (error.empty()) return ExitStatus::done;
  std::cerr << (path == "-" ? "standard output" : path) << ": error: " << error << '\n';
  return ExitStatus::failed;
}

std::string writePicture(const WriteJob& job) {
  PictureSource source;
  source.name = embedded::fileNameOf(job.path);
  source.subject.assembly = job.stager.GetSceneManager()->GetAssyRoot();
  return takeAndWrite(source, embedded::defaultDirection(), embedded::PictureFormat(), job.path);
}

}  // namespace wrl
