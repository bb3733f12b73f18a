#pragma once

// The host's settings for loading and saving models, and what it wants to hear meanwhile.

#include <VekFoundations/VekExport.h>

#include <string>

class sglNode;
class sglTexture2D;

class VEK_API sglModelLoader {
 public:
  // The hook of a file kind. It hears of every node: `node` is the host's node, null while the file's node is being
  // looked at; `fileNode` is the loader's own node; `event` is "onParse:" or "onCreate:" and a type name; `userData` is
  // what was registered with the hook. False vetoes.
  using CallbackFn = bool (*)(sglNode* node, void* fileNode, const std::string& event, void* userData);

  // The progress hook: a fraction from 0 to 1, and a text that is never null.
  using CallbackProgressFn = void (*)(float fraction, const char* text);

  // Reads the image file at `path` into `texture` (sglTexture2D::setImage), which is never null and has no image yet.
  // False when it cannot be read; the texture has no image then.
  using ImageReaderFn = bool (*)(const std::string& path, sglTexture2D* texture);

  sglModelLoader() = delete;

  // How finely curved surfaces are cut: 1 is the usual measure, 2 twice as fine.
  [[nodiscard]] static float GetIORefinement();

  // The hook registered for an extension without full stop ("wrl"), null when there is none. `userData`, never null,
  // receives what was registered with it, null without a hook.
  [[nodiscard]] static CallbackFn getCallback(const char* extension, void** userData);

  // The options set for an extension, "" when there are none.
  [[nodiscard]] static std::string getOptionString(const char* extension);

  // What stands behind the last slash of either kind; "" for null.
  [[nodiscard]] static std::string GetFileName(const char* path);

  // The progress hook, null when nobody listens.
  [[nodiscard]] static CallbackProgressFn GetCallbackProgress();

  // Whether a whole file is to become one object.
  [[nodiscard]] static bool GetIOMergeFileInOneActor();

  // What reads image files for textures; null, the usual answer, when textures of files are not wanted. A host may lack
  // this query altogether: test its address before calling it.
  [[nodiscard]] VEK_OPTIONAL static ImageReaderFn getImageReader();
};
