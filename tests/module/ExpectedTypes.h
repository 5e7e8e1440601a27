#pragma once

#include "MplsUtils/LspPing/platform/base/Integers.h"

#include <span>
#include <string_view>

// What must be registered at the first places of each module, written down by hand from the
// protocol's tables and the names that other programs rely on, without a look at the classes. What
// is added behind them has no entry here: its own test says what it is.
struct ExpectedType {
   U16 index;
   std::string_view name; ///< without "LspPing::"
   std::string_view kind; ///< as `lspping types` names kinds
   std::string_view base; ///< without "LspPing::"; empty without one
   U32 size;              ///< of a view, in bytes; 0 elsewhere
   /// "name type access" separated by ", ". Access is of r, w and c. Collections are
   /// "name[key] type", operations "name(type,type) result". "*" stands behind a pointer's type,
   /// "^" behind a counted one's. Types of namespace LspPing stand without it.
   /// Of a parser: the view, ":", and the names that it forwards.
   std::string_view attributes;
};

extern std::span< ExpectedType const > const expectedHdrTypes;
extern std::span< ExpectedType const > const expectedTypesTypes;
