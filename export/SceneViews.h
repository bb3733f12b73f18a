#pragma once

// The host's cameras as Viewpoint nodes, and its background.

#include <VekFoundations/CString.h>
#include <VekKernel/CVekStager.h>
#include <VekSG/sglVec3.h>

#include "export/TextWriter.h"

namespace exporter {

/// Writes a group of the selected viewport's camera and of every saved view; nothing when there is no such camera.
/// Without a list of views the group stays open.
void writeViews(TextWriter& out, const CVekStager& stager);

/// Writes one Viewpoint. The camera looks along minus `viewAxis`; a field of view (radians) that is not between 0 and a
/// right angle is left out.
void writeView(TextWriter& out, const sglVec3<float>& position, const sglVec3<float>& viewAxis,
               const sglVec3<float>& up, const CString& description, float fovRadians);

/// Writes the selected viewport's background; nothing when no viewport is selected.
void writeBackground(TextWriter& out, const CVekStager& stager);

}  // namespace exporter
