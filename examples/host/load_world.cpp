// Opens the module and loads a file, in the host that comes with it.

#include <VekSG/sglGroup.h>
#include <embedded/ModuleLoader.h>

#include <iostream>

int main(int argumentCount, char** arguments) {
  embedded::ModuleLoader module;
  if (argumentCount != 2 || !module.open(embedded::ModuleLoader::pathBesideHost())) return 2;
  const std::unique_ptr<CVekDBRoot> database = module.loadModel(arguments[1]);
  const auto* const scene = dynamic_cast<const sglGroup*>(database->GetSglRoot());
  if (scene == nullptr) return 1;  // the message stream, standard error, has said why
  for (unsigned i = 0; i < scene->getNumChildren(); ++i) std::cout << scene->getChild(i)->getName() << '\n';
}
