#include "MplsUtils/LspPing/message/LspPingMessage.h"

#include "MplsUtils/LspPing/message/LspPingWords.h"
#include "MplsUtils/LspPing/types/LspPingTlvTypes.h"

namespace LspPing {

std::span< U8 const > LspPingElementRef::paddedBytes() const noexcept {
   Data const & own = data();
   if( !own.flags.isCopied )
      return message_->bytes_.subspan( own.offset, own.occupied );
   return { at(), std::size_t{ own.row->viewOffset() } + own.row->viewSize };
}

void const * LspPingElementRef::viewAs( LspPingElementRef element, Kiv::TypeRef wanted ) noexcept {
   void const * const own = element.view();
   // A derived view begins with its base.
   return own != nullptr && element.type().isA( wanted ) ? own : nullptr;
}

bool LspPingElementRef::isUnderstood() const noexcept {
   constexpr U32 firstIgnored = 0x8000;
   return std::all_of( data_, data_ + data().span, []( Data const & element ) {
      return element.row != nullptr || element.code >= firstIgnored;
   } );
}

bool LspPingElementRef::appendText( Orlo::StringBuilder & out ) const {
   Data const & own = data();
   if( !own.flags.isViewed || own.row->appendText == nullptr )
      return false;
   own.row->appendText( out, at() );
   return true;
}

bool LspPingMessage::isHeaderValid() const noexcept {
   LspPingHdr const * const found = header();
   return found != nullptr &&
          ( found->valid() || ( ( found->version() == 1 || found->version() == 2 ) &&
                                !lspPingWords( LspPingMsgType{ found->messageType() } ).empty() ) );
}

void LspPingMessage::appendHeaderText( Orlo::StringBuilder & out ) const {
   out.append( isHeaderValid() ? header()->fieldsText() : header()->stringValue() );
}

LspPingReturnCode LspPingMessage::sanity() const noexcept {
   bool hasTarget = false;
   bool isUnderstood = true;
   for( LspPingElementRef const tlv : elements() ) {
      hasTarget |= tlv.code() == Kiv::numberOf( LspPingTlvType::TargetFecStack );
      isUnderstood &= tlv.isUnderstood();
   }
   // A request has a FEC stack, RFC 8029 section 4.3.
   if( !hasTarget || !problems_.empty() )
      return LspPingReturnCode::malFormEchoRequest;
   return isUnderstood ? LspPingReturnCode::noRetCode : LspPingReturnCode::tlvNotUnderstood;
}

} // namespace LspPing
