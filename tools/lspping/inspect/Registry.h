#pragma once

#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <string>
#include <string_view>
#include <vector>

namespace LspPingTool {

/// A module and those of its types that are to be shown.
struct ModuleShown {
   Kiv::ModuleTable const * module;
   std::vector< Kiv::TypeRef > types;
};

/// All modules, or the one type or module of that name. Raises UsageError if there is none.
std::vector< ModuleShown > modulesShown( std::string_view name );

/// "value", "pointer-interface", "object", "enumeration", "constant"
std::string_view kindText( Kiv::Kind kind );

/// An argument of an operation.
struct ArgumentShown {
   std::string_view name;
   Kiv::BufferType type;
};
std::vector< ArgumentShown > argumentsShown( Kiv::Attribute const & attribute );

/// The type's name as code would have it: "U32", "U8 *", "Orlo::Ptr< Velnet::Pkt >", "void".
std::string typeText( Kiv::BufferType type );

/// The reference of everything registered, as Markdown.
std::string registryMarkdown( std::vector< ModuleShown > const & modules );

/// The reference of all elements that can stand in a message, as Markdown.
std::string elementsMarkdown();

} // namespace LspPingTool
