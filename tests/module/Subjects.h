#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include <memory>
#include <random>
#include <vector>

// Objects of any registered type, and random values for their attributes.
namespace ModuleTest {

using Random = std::mt19937_64;

/// All types of the library's two modules.
std::vector< Kiv::TypeRef > libraryTypes();

/// True for classes whose objects are the bytes of a message.
bool isWireView( Kiv::TypeRef type );

/// The attributes of the type and of its bases, with the type that declares them.
std::vector< Kiv::FoundAttribute > allAttributes( Kiv::TypeRef type );

/// A random value of the type, or the default one where only that is known.
std::unique_ptr< Kiv::Instance > randomValue( Kiv::TypeRef type, Random & random );

/// What the object reads as: the text of every attribute that may be read, by name.
Orlo::String readings( Kiv::TypeRef type, void const * object );

} // namespace ModuleTest
