#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "tools/lspping/generic/AttributeJson.h"
#include "tools/lspping/inspect/Arguments.h"

#include <functional>
#include <string>
#include <vector>

namespace LspPingTool {

/// One write and what became of it.
struct WriteDone {
   std::string target;
   Kiv::Outcome outcome;
};

/// True if values of the type can be read from text: records that hold a collection cannot.
bool isParsable( Kiv::TypeRef type );

/// Reads a value from text, all of it. A string may come without its quotes. Raises InputError,
/// whose text begins with `subject`.
void valueFromText( Kiv::TypeRef type, std::string_view text, void * value,
                    std::string const & subject );

/// Writes in order through the generic attribute access. Raises InputError for a value that is none
/// of the attribute's type or that its setter would not take, naming attribute and value; the
/// writes before it are done.
///
/// \param isThere  Raises an error when the object is not all there, as after a write of its
/// length:
///    a setter with conditions is called only when it is.
std::vector< WriteDone > applyWrites(
   Kiv::TypeRef type, void * object, std::vector< WriteGiven > const & writes,
   std::function< void() > const & isThere = [] {} );

/// `"writes":[{"name":…,"outcome":0}]`
void writeOutcomes( JsonWriter & json, std::vector< WriteDone > const & writes );

/// "done", "not permitted", "no such attribute".
std::string_view outcomeText( Kiv::Outcome outcome );

} // namespace LspPingTool
