#include "MplsUtils/LspPing/platform/base/TypeRef.h"

#include "MplsUtils/LspPing/platform/base/Assert.h"
#include "MplsUtils/LspPing/platform/base/NameTable.h"

namespace Kiv {

constinit std::array< std::atomic< ModuleTable const * >, moduleLimit > modulesByNumber{};

namespace {

// The same modules in the order in which they came, without empty places: what a search visits.
constinit std::array< std::atomic< ModuleTable const * >, moduleLimit > modulesInOrder{};
constinit std::atomic< U16 > moduleCount{ 0 };

} // namespace

bool TypeRef::isA( TypeRef other ) const noexcept {
   for( TypeRef type = *this; type; type = type.base() )
      if( type == other )
         return true;
   return false;
}

TypeRef typeNamed( std::string_view name ) noexcept {
   U32 const hash = nameHash( name );
   // The libraries on top load after the platform and are asked for most.
   for( U16 i = moduleCount.load( std::memory_order_acquire ); i-- > 0; ) {
      ModuleTable const * module = modulesInOrder[i].load( std::memory_order_relaxed );
      U8 const number = findName( module->typeSlots, module->slotMask, hash, name,
                                  [module]( U8 type ) { return module->types[type].name; } );
      if( number != noName )
         return TypeRef( module->types + number );
   }
   return {};
}

ModuleRange modules() noexcept {
   ModuleRange range;
   for( auto const & place : modulesByNumber )
      if( ModuleTable const * module = place.load( std::memory_order_acquire ) )
         range.tables[range.count++] = module;
   return range;
}

void kivModuleIs( ModuleTable const & module ) noexcept {
   KIV_ASSERT( module.id < moduleLimit );
   KIV_ASSERT( modulesByNumber[module.id].load( std::memory_order_relaxed ) == nullptr );
   modulesByNumber[module.id].store( &module, std::memory_order_release );
   // Libraries load one at a time: the dynamic loader holds its lock around their initialisers.
   U16 const count = moduleCount.load( std::memory_order_relaxed );
   modulesInOrder[count].store( &module, std::memory_order_relaxed );
   moduleCount.store( static_cast< U16 >( count + 1 ), std::memory_order_release );
}

} // namespace Kiv
