#pragma once

#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/message/LspPingMessage.h"
#include "MplsUtils/LspPing/message/LspPingMultipath.h"
#include "MplsUtils/LspPing/message/LspPingWriteError.h"
#include "MplsUtils/LspPing/platform/Pseudowire/PseudowireGenId.h"
#include "MplsUtils/LspPing/platform/Velnet/IpGenAddr.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"

#include <concepts>
#include <span>

namespace LspPing {

class LspPingMessageWriter;

/// Whether an element's length counts the zeros behind its value.
enum class LspPingPaddingCount : U8 {
   without,
   with,
};

/// An element that a writer has begun. It is closed when the handle goes, which must not outlive
/// the writer. Elements that are written meanwhile stand in it; an inner one that is still open is
/// closed with it.
///
/// The functions write what stands behind the fixed part. They answer false where the element has
/// no place for it or the message no room: then the whole element is taken back, and what is
/// written until it is closed is not.
class LSPPING_MESSAGE_EXPORT LspPingOpenElement {
 public:
   LspPingOpenElement( LspPingOpenElement const & ) = delete;
   LspPingOpenElement & operator=( LspPingOpenElement const & ) = delete;
   inline ~LspPingOpenElement();

   /// Whether it is open, and not taken back.
   explicit operator bool() const noexcept;
   /// Fills in lengths and padding. Afterwards the handle is of no use.
   /// \returns  whether the element stands in the message.
   inline bool close() noexcept;
   /// Takes back the element with all that stands in it. The reason becomes the writer's error.
   /// \returns  false
   bool takeBack( LspPingWriteErrorCode why ) noexcept;

   /// Of a value that no class describes, and of padding.
   bool bytes( std::span< U8 const > bytes ) noexcept;

   /// Of a downstream mapping, of a Label Stack sub-TLV with the label's protocol, and of an
   /// Interface and Label Stack with the time to live as `last`.
   bool label( U32 label, U8 trafficClass, bool isBottomOfStack, U8 last ) noexcept;
   inline bool label( Velnet::MplsLabelEntry entry ) noexcept;

   // Multipath information, RFC 8029 section 3.4.1.1.1, once and before the labels. The addresses
   // are of one family; those of IPv6 are IPv4-mapped, or the mapping's own are of IPv6.

   /// The type and its information as it is sent.
   bool multipath( LspPingMultipathType type, std::span< U8 const > information ) noexcept;
   bool multipathAddresses( std::span< Velnet::IpGenAddr const > addresses ) noexcept;
   /// Both ends of a range belong to it.
   bool multipathRanges( std::span< LspPingMultipath::Item const > ranges ) noexcept;
   /// Bit 0 is the most significant one of the first byte, and stands for the base.
   inline bool multipathSet( Velnet::IpGenAddr const & base, std::span< U8 const > mask ) noexcept;
   /// The same without the detour of an address of any family.
   template < std::same_as< Velnet::IpAddr > Address >
   [[gnu::visibility( "hidden" )]] bool multipathSet( Address base,
                                                      std::span< U8 const > mask ) noexcept;
   bool multipathLabels( U32 base, std::span< U8 const > mask ) noexcept;

   /// The identifiers of a FEC 129, RFC 8029 section 3.2.10, each of at most eight bytes. Its
   /// length does not count the padding behind them, but there are routers that do.
   bool pwGenId( Pseudowire::PseudowireGenId const & id,
                 LspPingPaddingCount padding = LspPingPaddingCount::without ) noexcept;

   /// The root of a multipoint LDP FEC, of either family, RFC 6425 section 3.1.2.1. Before the
   /// opaque values; the view has a place for an address of IPv4 only.
   bool rootAddr( Velnet::IpGenAddr const & address ) noexcept;

 private:
   friend class LspPingMessageWriter;
   LspPingOpenElement( LspPingMessageWriter & writer, U32 id, LspPingBehind behind,
                       U32 fixed ) noexcept
      : writer_( writer ),
        id_( id ),
        fixed_( fixed ),
        behind_( behind ) {}

   // These take no handle, so that the compiler can keep it in registers.
   static bool labelSlowly( LspPingMessageWriter & writer, U32 id,
                            Velnet::MplsLabelEntry entry ) noexcept;
   static bool multipathSetSlowly( LspPingMessageWriter & writer, U32 id, Velnet::IpGenAddr base,
                                   std::span< U8 const > mask ) noexcept;
   static U8 * content( LspPingMessageWriter & writer, bool isPlace, U32 count ) noexcept;
   static U8 * multipathRoom( LspPingMessageWriter & writer, U32 id, LspPingMultipathType type,
                              std::size_t count ) noexcept;
   static bool multipathDone( LspPingMessageWriter & writer, LspPingMultipathType type,
                              std::size_t count, bool isIpv6 ) noexcept;

   LspPingMessageWriter & writer_;
   U32 id_;
   // Bytes of the fixed part and what stands behind it, where that is known while compiling.
   U32 fixed_;
   LspPingBehind behind_;
};

} // namespace LspPing
