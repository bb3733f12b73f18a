#pragma once

// Base of the host objects that several parts of the application work on at once.

#include <VekFoundations/VekExport.h>

// Carries the access bracket: whoever reads or changes a tree of such objects over some time stands between one opening
// and one closing call. Brackets may nest; each opening call has its closing one.
class VEK_API CVekShared {
 public:
  CVekShared() = default;
  CVekShared(const CVekShared&) = delete;
  CVekShared& operator=(const CVekShared&) = delete;
  virtual ~CVekShared();

  // Opens the bracket. `deep` is true when the bracket covers everything below the object too.
  virtual void BeginAccess(bool deep);

  // Closes the bracket that the last BeginAccess with the same argument opened.
  virtual void EndAccess(bool deep);
};
