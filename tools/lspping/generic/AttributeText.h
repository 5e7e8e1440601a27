#pragma once

#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

namespace LspPingTool {

/// Appends one attribute's value, read through the generic access, as its generic text; "none" when
/// the object's state forbids to read it. Collections are no part of a line and append nothing.
void appendAttribute( Orlo::StringBuilder & out, Kiv::TypeRef declaring,
                      Kiv::Attribute const & attribute, void const * object );

/// Appends a line in the manner of the views' own texts: the type's short name, then the fields
/// that can be written, those of the bases first down to but without `above`. Addresses stand in
/// quotes: "MultipathSubTlv( multipathType: 2, multipathLength: 4, mbz: 0 )".
void appendFields( Orlo::StringBuilder & out, Kiv::TypeRef type, Kiv::TypeRef above,
                   void const * object );

} // namespace LspPingTool
