#pragma once

#include "MplsUtils/LspPing/ext/types/LspPingExtMappingTypes.h"
#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"

#include <cstddef>
#include <span>

namespace LspPing {

/// Labels of 24 bits, each for one address or label of the same multipath information.
class LspPingAssociatedLabels {
 public:
   explicit LspPingAssociatedLabels( std::span< U8 const > bytes ) noexcept : bytes_( bytes ) {}

   std::size_t size() const noexcept { return bytes_.size() / 3; }
   U32 operator[]( std::size_t i ) const noexcept {
      return U32{ bytes_[3 * i] } << 16 | U32{ bytes_[3 * i + 1] } << 8 | bytes_[3 * i + 2];
   }

 private:
   std::span< U8 const > bytes_;
};

/// Multipath information, RFC 8029 section 3.4.1.1.1: addresses or labels that are sent one way.
/// The bytes stay the message's. Whatever they are, it reads what is whole of them.
class LSPPING_MESSAGE_EXPORT LspPingMultipath {
 public:
   /// One address, a range of addresses (both ends belong to it), or a run of labels.
   struct Item {
      Velnet::IpGenAddr first;
      Velnet::IpGenAddr last;
      U64 firstLabel = 0;
      U64 lastLabel = 0;

      bool isRange() const noexcept { return firstLabel != lastLabel || !( first == last ); }
   };
   class Iterator;

   /// RFC 8012 section 6: addresses, labels, and labels associated with them.
   static constexpr auto ipAndLabelSet =
      static_cast< LspPingMultipathType >( LspPingExtMultipathType::ipAndLabelSetMultipath );

   LspPingMultipath() noexcept = default;
   /// \param isMappingIpv6  Whether the mapping's own addresses are of IPv6.
   LspPingMultipath( LspPingMultipathType type, std::span< U8 const > information,
                     bool isMappingIpv6 ) noexcept
      : bytes_( information ),
        type_( type ),
        isIpv6_( isIpAndLabelSet() ? isMappingIpv6
                                   : information.size() >= sizeof( Velnet::Ip6Addr ) &&
                                        !isLabels() && isAddressIpv6( isMappingIpv6 ) ) {}

   struct FamilyKnown {};
   /// As it was read before, with what `readFamily` said.
   LspPingMultipath( LspPingMultipathType type, std::span< U8 const > information, bool isIpv6,
                     FamilyKnown ) noexcept
      : bytes_( information ),
        type_( type ),
        isIpv6_( isIpv6 ) {}

   LspPingMultipathType type() const noexcept { return type_; }
   /// As it was sent.
   std::span< U8 const > bytes() const noexcept { return bytes_; }

   /// In IPv6 the addresses are IPv4-mapped, and it is not said that the family is the mapping's
   /// own: addresses of 127/8 are seen in mappings of IPv6. An IP and label set has its in `ip()`.
   bool isIpv6() const noexcept { return isIpv6_ && !isIpAndLabelSet(); }
   bool isLabels() const noexcept { return type_ == LspPingMultipathType::maskedLabelSetMultipath; }
   bool isIpAndLabelSet() const noexcept { return type_ == ipAndLabelSet; }
   bool isList() const noexcept {
      return type_ == LspPingMultipathType::ipMultipath ||
             type_ == LspPingMultipathType::ipRangeMultipath;
   }
   /// Whether it was read as of IPv6; of an IP and label set, in a mapping of IPv6.
   bool readFamily() const noexcept { return isIpv6_; }
   /// A base and a mask behind it, of at least one byte.
   bool isSet() const noexcept {
      return ( type_ == LspPingMultipathType::maskedIpSetMultipath || isLabels() ) &&
             bytes_.size() > unit();
   }
   /// Whether the length is one that information of this type can have. None is. Of an IP and label
   /// set, whether that holds for its sections, and they fill it.
   bool isWellFormed() const noexcept;

   /// Of a set of addresses, or of one of labels.
   Velnet::IpGenAddr baseAddress() const noexcept { return address( 0 ); }
   U32 baseLabel() const noexcept;
   /// Of a set: bit 0 is the most significant one of the first byte.
   std::span< U8 const > mask() const noexcept { return bytes_.subspan( unit() ); }

   /// Of a list: how many addresses there are, two for each range, and one of them.
   std::size_t addressCount() const noexcept { return bytes_.size() / unit(); }
   Velnet::IpGenAddr address( std::size_t i ) const noexcept {
      U8 const * const at = bytes_.data() + i * unit();
      // An address of that family is there, and the types have no alignment.
      if( isIpv6_ )
         return *reinterpret_cast< Velnet::Ip6Addr const * >( at );
      return *reinterpret_cast< Velnet::IpAddr const * >( at );
   }

   // The sections of an IP and label set. One that is left out has type `noMultipath`; well formed
   // are addresses of the types 0, 2, 4 and 8, and labels of the types 0 and 9.
   LspPingMultipath ip() const noexcept;
   LspPingMultipath labels() const noexcept;
   LspPingAssociatedLabels associatedLabels() const noexcept;

   /// The addresses and ranges of a list, or the runs of bits that are set.
   Iterator begin() const noexcept;
   static constexpr std::nullptr_t end() noexcept { return nullptr; }

 private:
   friend class Iterator;
   // Of at least one address of IPv6. What is mapped begins with zeros.
   bool isAddressIpv6( bool isMappingIpv6 ) const noexcept {
      return ( bytes_[0] == 0 && isMapped( bytes_.data() ) ) ||
             ( isMappingIpv6 && bytes_[0] != 127 );
   }
   static bool isMapped( U8 const * address ) noexcept;
   struct Section;
   Section sectionAt( std::size_t i ) const noexcept;
   bool areSectionsWellFormed() const noexcept;
   std::size_t unit() const noexcept { return isIpv6_ ? 16 : 4; }
   bool contains( std::size_t bit ) const noexcept {
      return ( bytes_[unit() + bit / 8] >> ( 7 - bit % 8 ) & 1 ) != 0;
   }
   Velnet::IpGenAddr member( std::size_t bit ) const noexcept;

   std::span< U8 const > bytes_;
   LspPingMultipathType type_ = LspPingMultipathType::noMultipath;
   bool isIpv6_ = false;
};

class LSPPING_MESSAGE_EXPORT LspPingMultipath::Iterator {
 public:
   Item operator*() const noexcept;
   Iterator & operator++() noexcept;
   friend bool operator==( Iterator const & at, std::nullptr_t ) noexcept { return at.isAtEnd(); }

 private:
   friend class LspPingMultipath;
   explicit Iterator( LspPingMultipath const & multipath ) noexcept : multipath_( &multipath ) {
      findRun();
   }
   std::size_t count() const noexcept;
   bool isAtEnd() const noexcept { return first_ >= count(); }
   void findRun() noexcept;

   LspPingMultipath const * multipath_;
   // Addresses, ranges or bits: those from the first to before the last.
   std::size_t first_ = 0;
   std::size_t last_ = 0;
};

inline bool LspPingMultipath::isWellFormed() const noexcept {
   std::size_t const size = bytes_.size();
   if( size == 0 )
      return true;
   if( isIpAndLabelSet() )
      return areSectionsWellFormed();
   switch( type_ ) {
   case LspPingMultipathType::noMultipath:
      return false;
   case LspPingMultipathType::ipMultipath:
      return size % unit() == 0;
   case LspPingMultipathType::ipRangeMultipath:
      return size % ( 2 * unit() ) == 0;
   case LspPingMultipathType::maskedIpSetMultipath:
   case LspPingMultipathType::maskedLabelSetMultipath:
      return size % 4 == 0 && size > unit();
   }
   return size % 4 == 0;
}

inline LspPingMultipath::Iterator LspPingMultipath::begin() const noexcept {
   return Iterator( *this );
}

} // namespace LspPing
