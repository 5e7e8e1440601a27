#pragma once

#include "MplsUtils/LspPing/platform/base/TypeRef.h"
#include "tools/lspping/generic/AttributeJson.h"
#include "tools/lspping/inspect/Arguments.h"
#include "tools/lspping/inspect/Commands.h"
#include "tools/lspping/inspect/Writes.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace LspPingTool {

/// Builds a line of JSON, without its end.
std::string jsonLine( std::function< void( JsonWriter & ) > const & write );

/// `  name = value` for every readable attribute, the inherited ones first. Values are as in JSON.
void appendAttributes( std::string & out, Kiv::TypeRef type, void const * object );
/// `  name: done` for every write, behind a line of its own; nothing where there is none.
void appendOutcomes( std::string & out, std::vector< WriteDone > const & writes );

/// Two lower-case digits for each byte.
std::string hexOf( std::span< U8 const > bytes );

/// What a subcommand makes of its arguments: text, or one line of JSON.
using Answer = std::function< std::string( std::vector< std::string > const &, bool json ) >;

/// Answers the arguments, or each line of standard input if they are a single "-". Returns the exit
/// status.
int answerAll( ObjectOptions const & options, Output & output, Answer const & answer );

} // namespace LspPingTool
