#include "MplsUtils/LspPing/message/LspPingMessage.h"

namespace LspPing {

std::span< U8 const > LspPingElementRef::paddedBytes() const noexcept {
   Data const & own = data();
   if( !own.isCopied )
      return message_->bytes_.subspan( own.offset, own.occupied );
   return { at(), std::size_t{ own.row->viewOffset() } + own.row->viewSize };
}

void const * LspPingElementRef::view() const noexcept {
   Data const & own = data();
   return own.isViewed && own.row->viewSize != 0 ? at() + own.row->viewOffset() : nullptr;
}

void const * LspPingElementRef::viewAs( Kiv::TypeRef wanted ) const noexcept {
   void const * const own = view();
   // A derived view begins with its base.
   return own != nullptr && type().isA( wanted ) ? own : nullptr;
}

bool LspPingElementRef::appendText( Orlo::StringBuilder & out ) const {
   Data const & own = data();
   if( !own.isViewed || own.row->appendText == nullptr )
      return false;
   own.row->appendText( out, at() );
   return true;
}

LspPingMultipath LspPingElementRef::multipath() const noexcept {
   Data const & own = data();
   return { static_cast< LspPingMultipathType >( own.multipathType ),
            message_->bytes_.subspan( own.multipathOffset, own.multipathLength ),
            own.isMappingIpv6 };
}

LspPingLabels LspPingElementRef::labels() const noexcept {
   Data const & own = data();
   return { message_->bytes_.subspan( own.labelsOffset, own.labelsLength ),
            own.row != nullptr && own.row->facts.behind != LspPingBehind::labelStack };
}

} // namespace LspPing
