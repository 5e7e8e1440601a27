#pragma once

#include "MplsUtils/LspPing/message/LspPingMessage.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/Ip6Addr.h"
#include "MplsUtils/LspPing/platform/Velnet/IpAddr.h"
#include "tools/lspping/capture/EchoPacket.h"

#include <memory>
#include <span>

// The smaller things that a message shows, for both printers.
namespace LspPingTool {

/// An address of 4 or 16 bytes in its usual text.
void appendAddress( Orlo::StringBuilder & out, std::span< U8 const > address );

/// The object that stands for an element's bytes: its view, or a copy of them (Pad).
class ElementObject {
 public:
   /// The element must have a type.
   explicit ElementObject( LspPing::LspPingElementRef element );

   void const * get() const noexcept { return object_; }
   /// The class's own text, or the fields where it has none. Empty for the classes whose text of an
   /// invalid element is empty.
   void appendText( Orlo::StringBuilder & out ) const;

 private:
   LspPing::LspPingElementRef element_;
   void const * object_;
   std::unique_ptr< void, void ( * )( void * ) > copy_;
};

/// Whether the element's bytes must be shown because nothing else says all that they say.
bool showsBytes( LspPing::LspPingElementRef element ) noexcept;

/// The name of the element's code, or else the number.
void appendCodeName( Orlo::StringBuilder & out, LspPing::LspPingElementRef element );

/// The name of a LspPingMultipathType or LspPingExtMultipathType, or the number.
void appendMultipathType( Orlo::StringBuilder & out, LspPing::LspPingMultipathType type );

/// A LspPingDownstreamSignalingProtocol by its name, or its number.
void appendProtocol( Orlo::StringBuilder & out, U8 protocol );

} // namespace LspPingTool
