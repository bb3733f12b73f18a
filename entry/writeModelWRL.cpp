// The whole of it is the export's.

#include "entry/writeModelWRL.h"

#include "export/WriteModel.h"

void writeModelWRL(const std::string& path, CVekStager* app) noexcept { exporter::writeModel(path, app); }
