#pragma once

#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Orlo/Node.h"
#include "MplsUtils/LspPing/platform/base/Integers.h"
#include "MplsUtils/LspPing/types/Export.h"

namespace LspPing {

/// What the containers of the TLVs with an address type (LspPingAddrType) share: the value's bytes
/// under a common header view, and under the one of four views that the address type calls for. The
/// bytes stay the caller's. Nothing clears a pointer: a container that is used again keeps those
/// that the latest value did not set.
template < class Header, class Ipv4, class Ipv6, class Ipv4Unnumbered, class Ipv6Unnumbered >
class LspPingTlvContainer : public Orlo::Node {
 public:
   /// True after a cast that found enough bytes.
   bool valid() const noexcept { return valid_; }
   void validIs( bool valid ) noexcept { valid_ = valid; }
   /// Of any container that has a header.
   U8 getAddrType() const noexcept { return header_->addrType(); }
   Header * header() const noexcept { return header_; }
   void headerIs( Header * header ) noexcept { header_ = header; }
   Ipv4 * ipv4Tlv() const noexcept { return ipv4Tlv_; }
   void ipv4TlvIs( Ipv4 * tlv ) noexcept { ipv4Tlv_ = tlv; }
   Ipv6 * ipv6Tlv() const noexcept { return ipv6Tlv_; }
   void ipv6TlvIs( Ipv6 * tlv ) noexcept { ipv6Tlv_ = tlv; }
   Ipv4Unnumbered * ipv4UnnumberedTlv() const noexcept { return ipv4UnnumberedTlv_; }
   void ipv4UnnumberedTlvIs( Ipv4Unnumbered * tlv ) noexcept { ipv4UnnumberedTlv_ = tlv; }
   Ipv6Unnumbered * ipv6UnnumberedTlv() const noexcept { return ipv6UnnumberedTlv_; }
   void ipv6UnnumberedTlvIs( Ipv6Unnumbered * tlv ) noexcept { ipv6UnnumberedTlv_ = tlv; }

   /// Mostly a container has one user, the agent that asks it.
   static constexpr bool usuallyOneUser = true;

 protected:
   enum class UnknownAddrType : bool {
      isRefused,
      isTaken
   };

   LspPingTlvContainer() noexcept = default;

   // Too few bytes for the header leave all pointers, too few for the view all but the header's.
   void cast( U8 * value, U32 len, UnknownAddrType unknown ) noexcept {
      valid_ = false;
      if( len < sizeof( Header ) )
         return;
      // The views have no alignment, and as many bytes are there as each of them has.
      header_ = reinterpret_cast< Header * >( value );
      switch( getAddrType() ) {
      case 1:
         valid_ = point( ipv4Tlv_, value, len );
         return;
      case 2:
         valid_ = point( ipv4UnnumberedTlv_, value, len );
         return;
      case 3:
         valid_ = point( ipv6Tlv_, value, len );
         return;
      case 4:
         valid_ = point( ipv6UnnumberedTlv_, value, len );
         return;
      default:
         valid_ = unknown == UnknownAddrType::isTaken;
      }
   }

   // Each address type is of a family, whose interface is numbered or not.
   bool isKnown() const noexcept { return getAddrType() >= 1 && getAddrType() <= 4; }
   bool isOfIpv4() const noexcept { return getAddrType() == 1 || getAddrType() == 2; }
   bool isNumbered() const noexcept { return getAddrType() == 1 || getAddrType() == 3; }

   // What `read` finds in the view of that family that the address type calls for.
   template < class Read >
   auto fromView( bool isIpv4, Read read ) const {
      bool const unnumbered = getAddrType() == 2 || getAddrType() == 4;
      if( isIpv4 )
         return unnumbered ? read( *ipv4UnnumberedTlv_ ) : read( *ipv4Tlv_ );
      return unnumbered ? read( *ipv6UnnumberedTlv_ ) : read( *ipv6Tlv_ );
   }
   // What `read` finds of a numbered interface, or `none`.
   template < class Value, class Read >
   Value ofNumbered( Value none, Read read ) const {
      if( !isNumbered() )
         return none;
      return isOfIpv4() ? Value( read( *ipv4Tlv_ ) ) : Value( read( *ipv6Tlv_ ) );
   }
   // What `read` finds of an unnumbered interface, or `none`.
   template < class Value, class Read >
   Value ofUnnumbered( Value none, Read read ) const {
      if( !isKnown() || isNumbered() )
         return none;
      return isOfIpv4() ? Value( read( *ipv4UnnumberedTlv_ ) )
                        : Value( read( *ipv6UnnumberedTlv_ ) );
   }

   // Which getters may be called in this state: those that read the header only, `isIpv4()`, those
   // that read the chosen view, the interface address and the interface index.
   bool headerReadable() const noexcept { return header_ != nullptr; }
   bool familyReadable() const noexcept { return valid_ && header_ != nullptr && isKnown(); }
   bool viewReadable() const noexcept { return familyReadable() && chosenView() != nullptr; }
   bool intfAddrReadable() const noexcept {
      return valid_ && header_ != nullptr && ( !isNumbered() || chosenView() != nullptr );
   }
   bool intfIdReadable() const noexcept {
      return valid_ && header_ != nullptr &&
             ( isNumbered() || !familyReadable() || chosenView() != nullptr );
   }

   // The rows of a container's own getters and behind them those of the state.
   template < class... Rows >
   static constexpr auto attributesWithState( Rows... rows ) {
      using Self = LspPingTlvContainer;
      return Kiv::attributes(
         rows..., Kiv::field< &Self::valid, &Self::validIs >( "valid" ),
         Kiv::field< &Self::header, &Self::headerIs >( "header" ),
         Kiv::field< &Self::ipv4Tlv, &Self::ipv4TlvIs >( "ipv4Tlv" ),
         Kiv::field< &Self::ipv6Tlv, &Self::ipv6TlvIs >( "ipv6Tlv" ),
         Kiv::field< &Self::ipv4UnnumberedTlv, &Self::ipv4UnnumberedTlvIs >( "ipv4UnnumberedTlv" ),
         Kiv::field< &Self::ipv6UnnumberedTlv, &Self::ipv6UnnumberedTlvIs >(
            "ipv6UnnumberedTlv" ) );
   }

 private:
   template < class View >
   static bool point( View *& view, U8 * value, U32 len ) noexcept {
      if( len < sizeof( View ) )
         return false;
      view = reinterpret_cast< View * >( value );
      return true;
   }

   void const * chosenView() const noexcept {
      switch( getAddrType() ) {
      case 1:
         return ipv4Tlv_;
      case 2:
         return ipv4UnnumberedTlv_;
      case 3:
         return ipv6Tlv_;
      default:
         return ipv6UnnumberedTlv_;
      }
   }

   bool valid_ = false;
   Header * header_ = nullptr;
   Ipv4 * ipv4Tlv_ = nullptr;
   Ipv6 * ipv6Tlv_ = nullptr;
   Ipv4Unnumbered * ipv4UnnumberedTlv_ = nullptr;
   Ipv6Unnumbered * ipv6UnnumberedTlv_ = nullptr;
};

} // namespace LspPing
