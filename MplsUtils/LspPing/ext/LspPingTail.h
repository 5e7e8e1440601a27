#pragma once

#include "MplsUtils/LspPing/ext/Export.h"
#include "MplsUtils/LspPing/types/LspPingElement.h"

#include <cstddef>
#include <span>

// What the views share that go on behind their fixed part, to the end of the value. Whoever lays
// such a view has looked that the bytes are there that its length gives.
namespace LspPing {

/// The bytes of the value behind the view's own; none where the length ends before them.
template < class View >
std::span< U8 const > lspPingTail( View const & view ) noexcept {
   std::size_t const size =
      lspPingHeaderSize( View::element.context ) + View::element.codeExtension + view.length();
   return size > sizeof( View )
             ? std::span( reinterpret_cast< U8 const * >( &view ), size ).subspan( sizeof( View ) )
             : std::span< U8 const >();
}

/// As many bytes are needed to lay the view over these: the `kivExtent` of such a view.
template < class View >
std::size_t lspPingExtent( std::span< U8 const > bytes ) noexcept {
   if( bytes.size() < sizeof( View ) )
      return sizeof( View );
   // They are there, and a view has no alignment.
   auto const & view = *reinterpret_cast< View const * >( bytes.data() );
   return sizeof( View ) + lspPingTail( view ).size();
}

} // namespace LspPing
