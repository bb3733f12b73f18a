// A module of two functions that shows what it was called with.

#include <VekKernel/CVekStager.h>
#include <VekSG/sglOStream.h>
#include <VekSG/sglTransform.h>
#include <VekSGdb/CVekDBRoot.h>

extern "C" {

VEK_API CVekDBRoot* loadModelWRL(const std::string& path, unsigned flags);
VEK_API void writeModelWRL(const std::string& path, CVekStager* app);

CVekDBRoot* loadModelWRL(const std::string& path, unsigned flags) {
  sglOStream(sglOStream::PRINT_WARNING).getOStream() << "flags " << flags;
  auto* root = new sglTransform<float>;
  root->setName(path);
  auto* database = new CVekDBRoot;
  database->SetSglRoot(root);
  return database;
}

void writeModelWRL(const std::string& path, CVekStager* app) {
  auto root = std::make_unique<CVekAssyRoot>();
  root->SetName(path);
  app->GetSceneManager()->SetAssyRoot(std::move(root));
}
}
