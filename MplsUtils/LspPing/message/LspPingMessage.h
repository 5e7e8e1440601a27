#pragma once

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/LspPingTlvHdr.h"
#include "MplsUtils/LspPing/message/Export.h"
#include "MplsUtils/LspPing/message/LspPingElements.h"
#include "MplsUtils/LspPing/message/LspPingMultipath.h"
#include "MplsUtils/LspPing/message/LspPingProblem.h"
#include "MplsUtils/LspPing/platform/Orlo/StringBuilder.h"
#include "MplsUtils/LspPing/platform/Velnet/MplsLabelEntry.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"
#include "MplsUtils/LspPing/types/LspPingMessageTypes.h"

#include <span>
#include <string_view>
#include <vector>

namespace LspPing {

class LspPingElementRange;
class LspPingMessage;

/// The labels that stand in an element. The bytes stay the message's.
class LspPingLabels {
 public:
   LspPingLabels() noexcept = default;
   LspPingLabels( std::span< U8 const > bytes, bool hasProtocol ) noexcept
      : bytes_( bytes ),
        hasProtocol_( hasProtocol ) {}

   std::size_t size() const noexcept { return bytes_.size() / 4; }
   std::span< U8 const > bytes() const noexcept { return bytes_; }
   /// A downstream label (RFC 8029 section 3.4.1.2) has its signaling protocol, a
   /// LspPingDownstreamSignalingProtocol, where a label stack entry has its time to live.
   bool hasProtocol() const noexcept { return hasProtocol_; }
   Velnet::MplsLabelEntry const & operator[]( std::size_t i ) const noexcept {
      // The bytes of an entry are there, and it has no alignment.
      return reinterpret_cast< Velnet::MplsLabelEntry const * >( bytes_.data() )[i];
   }

 private:
   std::span< U8 const > bytes_;
   bool hasProtocol_ = false;
};

/// A TLV, a sub-TLV, a FEC or an opaque value of a message that was read: a handle, to be passed
/// by value, good as long as the message. All offsets count from the message's first byte.
class LSPPING_MESSAGE_EXPORT LspPingElementRef {
 public:
   LspPingContext context() const noexcept { return data().context; }
   U32 code() const noexcept { return data().code; }
   /// The enumerator's name of the code, empty where it has none.
   std::string_view name() const noexcept { return lspPingCodeName( context(), code() ); }
   /// False where its code or that of an element in it is not known and may not be ignored, RFC
   /// 8029 section 3.
   bool isUnderstood() const noexcept;
   U32 offset() const noexcept { return data().offset; }
   /// Of the value, as the element says; where an RFC contradicts itself, as its bytes say.
   U32 length() const noexcept { return data().length; }
   /// With header and padding, not cut to 16 bits.
   U32 totalLength() const noexcept {
      U32 const whole = lspPingHeaderSize( context() ) + length();
      return isUnpadded() ? whole : lspPingPadded( whole );
   }
   /// No padding is sent behind it, RFC 7737 section 3.2.
   bool isUnpadded() const noexcept {
      return data().row != nullptr && data().row->facts.isUnpadded && !data().flags.isOtherReading;
   }
   /// Which one of an RFC's contradicting readings was taken, in words; empty for the usual one.
   std::string_view reading() const noexcept {
      return data().flags.isOtherReading ? row()->facts.otherReading : std::string_view();
   }
   /// How deep it stands: 0 in the message itself.
   U32 depth() const noexcept { return data().depth; }
   /// Which of the message's elements it is.
   U32 index() const noexcept;

   /// Header and value as far as they are there, without padding.
   std::span< U8 const > bytes() const noexcept;
   std::span< U8 const > value() const noexcept {
      return bytes().subspan( lspPingHeaderSize( context() ) );
   }
   /// Header, value and the padding that is there. Where a view covers padding that is missing,
   /// zeros stand for it.
   std::span< U8 const > paddedBytes() const noexcept;
   /// Header and value are all there.
   bool isWhole() const noexcept {
      return data().present == lspPingHeaderSize( context() ) + length();
   }

   /// What the table of elements says; null for a code that nobody knows.
   LspPingElementRow const * row() const noexcept { return data().row; }
   /// The class that describes the element; none where there is none or its bytes are missing.
   Kiv::TypeRef type() const noexcept {
      return data().flags.isViewed ? Kiv::TypeRef( data().row->type ) : Kiv::TypeRef();
   }
   /// Whether it has a type().
   bool isDescribed() const noexcept { return data().flags.isViewed; }
   /// What the class says of itself: false without one.
   bool isValid() const noexcept { return data().flags.isValid; }
   /// Bytes of it are shown neither by its class nor by what it contains.
   bool hidesBytes() const noexcept { return data().flags.hidesBytes; }

   /// The view, where it describes this element and lies there whole; null otherwise. A base of
   /// the view will do, such as LspPingDdmapHdr for a mapping of any address type.
   template < class View >
   View const * as() const noexcept {
      static_assert( Kiv::isWireView< View, sizeof( View ) > );
      if constexpr( std::is_same_v< View, LspPingTlvHdr > ) {
         return context() != LspPingContext::opaqueValue
                   ? reinterpret_cast< View const * >( bytes().data() )
                   : nullptr;
      } else {
         // Quick for what it mostly is: that view, or one that has nothing to do with it. What
         // derives from an element's class is an element of the same codes.
         if constexpr( requires { View::element; } ) {
            if( !View::element.hasCode( code() ) || View::element.context != context() )
               return nullptr;
            constexpr U32 header = lspPingHeaderSize( View::element.context );
            constexpr U32 offset = View::element.isOverValue ? header : 0;
            if( isDescribed() && row()->type == Kiv::typeIdOf< View > ) [[likely]]
               return reinterpret_cast< View const * >( at() + offset );
         }
         return static_cast< View const * >( viewAs( *this, Kiv::typeOf< View >() ) );
      }
   }
   /// The object of `type()`: the view, or null for the Pad TLV, whose class is a copy of its
   /// bytes.
   void const * view() const noexcept {
      return isDescribed() && row()->viewSize != 0 ? at() + row()->viewOffset() : nullptr;
   }
   /// Appends the view's own text, such as "LdpIpv4( '10.1.2.0/24' )". False where there is no view
   /// or it has no text.
   bool appendText( Orlo::StringBuilder & out ) const;

   /// What stands in it, in the order of the bytes.
   LspPingElementRange elements() const noexcept;
   /// Whether it is one that other elements stand in, be there any or none.
   bool isContainer() const noexcept { return data().flags.isContainer; }

   bool hasMultipath() const noexcept { return data().flags.hasMultipath; }
   LspPingMultipath multipath() const noexcept;
   bool hasLabels() const noexcept { return data().flags.hasLabels; }
   LspPingLabels labels() const noexcept;

 private:
   friend class LspPingMessage;
   friend class LspPingElementRange;
   friend class LspPingWalk;
   // Numbers that the reader stores one by one do not stand side by side: g++ would collect them
   // first.
   struct Data {
      LspPingElementRow const * row = nullptr;
      LspPingElementFlags flags;
      U32 offset = 0;
      U16 code = 0;
      LspPingContext context = LspPingContext::message;
      U8 depth = 0;
      U32 length = 0;
      // So many elements on stands the next one that is not in it.
      U32 span = 1;
      // Of header and value; with the padding that is there.
      U32 present = 0;
      LspPingMultipathType multipathType = LspPingMultipathType::noMultipath;
      U32 occupied = 0;
      // Where a zero-padded copy begins for a view that takes padding which is not there.
      U32 copy = 0;
      U32 multipathOffset = 0;
      U32 multipathLength = 0;
      U32 labelsOffset = 0;
      U32 labelsLength = 0;
   };
   static_assert( sizeof( Data ) == 64 );

   LspPingElementRef( LspPingMessage const & message, Data const * data ) noexcept
      : message_( &message ),
        data_( data ) {}
   Data const & data() const noexcept { return *data_; }
   U8 const * at() const noexcept;
   // Takes no handle by its address, so that the compiler can keep it in registers.
   static void const * viewAs( LspPingElementRef element, Kiv::TypeRef wanted ) noexcept;

   LspPingMessage const * message_;
   Data const * data_;
};

/// Elements that stand beside each other, for range-for.
class LspPingElementRange {
   using Data = LspPingElementRef::Data;

 public:
   class Iterator {
    public:
      LspPingElementRef operator*() const noexcept { return { *message_, data_ }; }
      Iterator & operator++() noexcept;
      friend bool operator==( Iterator const & a, Iterator const & b ) noexcept {
         return a.data_ == b.data_;
      }

    private:
      friend class LspPingElementRange;
      Iterator( LspPingMessage const * message, Data const * data ) noexcept
         : message_( message ),
           data_( data ) {}
      LspPingMessage const * message_;
      Data const * data_;
   };

   Iterator begin() const noexcept { return { message_, begin_ }; }
   Iterator end() const noexcept { return { message_, end_ }; }
   bool empty() const noexcept { return begin_ == end_; }

 private:
   friend class LspPingElementRef;
   friend class LspPingMessage;
   LspPingElementRange( LspPingMessage const & message, Data const * begin,
                        Data const * end ) noexcept
      : message_( &message ),
        begin_( begin ),
        end_( end ) {}

   LspPingMessage const * message_;
   Data const * begin_;
   Data const * end_;
};

/// What a reader found in the bytes of a message. It owns none of them and is good as long as they
/// are, and until its reader reads again.
class LSPPING_MESSAGE_EXPORT LspPingMessage {
 public:
   LspPingMessage() noexcept = default;
   LspPingMessage( LspPingMessage const & ) = delete;
   LspPingMessage & operator=( LspPingMessage const & ) = delete;
   ~LspPingMessage() = default;

   std::span< U8 const > bytes() const noexcept { return bytes_; }
   /// Null when 32 bytes are not there. Of the registered message types, it takes requests and
   /// replies for valid and no others.
   LspPingHdr const * header() const noexcept {
      // The bytes are there, and the view has no alignment.
      return bytes_.size() >= sizeof( LspPingHdr )
                ? reinterpret_cast< LspPingHdr const * >( bytes_.data() )
                : nullptr;
   }

   /// Whether there is a header of a registered message type (RFC 8029 section 3, RFC 7555 section
   /// 3, RFC 7743 section 3.1).
   bool isHeaderValid() const noexcept;
   /// Its text; there must be one.
   void appendHeaderText( Orlo::StringBuilder & out ) const;

   /// The top-level TLVs, in the order of the bytes.
   LspPingElementRange elements() const noexcept {
      return { *this, elements_.data(), elements_.data() + count_ };
   }
   /// What a receiver of the request says of it before it looks at its sense, RFC 8029 section 4.4
   /// step 1: `malFormEchoRequest`, `tlvNotUnderstood`, or `noRetCode` for a good one.
   LspPingReturnCode sanity() const noexcept;

   /// All elements, each in front of what it contains.
   U32 elementCount() const noexcept { return count_; }
   LspPingElementRef element( U32 index ) const noexcept {
      return { *this, elements_.data() + index };
   }

   /// What is wrong with the message, in the order in which it was found. Empty for a well-formed
   /// one: what only nobody here knows is no problem.
   std::span< LspPingProblem const > problems() const noexcept { return problems_; }
   /// The bytes that the problem speaks of and that are part of nothing else.
   std::span< U8 const > strayBytes( LspPingProblem const & problem ) const noexcept {
      return bytes_.subspan( problem.offset, problem.strayBytes );
   }
   /// Says the problem in words, such as "NilFec: length 8 needs 12 bytes, had 8".
   void appendText( Orlo::StringBuilder & out, LspPingProblem const & problem ) const;

 private:
   friend class LspPingElementRef;
   friend class LspPingElementRange::Iterator;
   friend class LspPingMessageReader;
   friend class LspPingWalk;

   std::span< U8 const > bytes_;
   // The first `count_` are the message's: the others have been those of longer ones.
   std::vector< LspPingElementRef::Data > elements_;
   U32 count_ = 0;
   std::vector< LspPingProblem > problems_;
   std::vector< U8 > copies_;
};

inline U32 LspPingElementRef::index() const noexcept {
   return static_cast< U32 >( data_ - message_->elements_.data() );
}
inline U8 const * LspPingElementRef::at() const noexcept {
   Data const & own = data();
   return own.flags.isCopied ? message_->copies_.data() + own.copy
                             : message_->bytes_.data() + own.offset;
}
inline std::span< U8 const > LspPingElementRef::bytes() const noexcept {
   return message_->bytes_.subspan( data().offset, data().present );
}
inline LspPingMultipath LspPingElementRef::multipath() const noexcept {
   Data const & own = data();
   return { own.multipathType, message_->bytes_.subspan( own.multipathOffset, own.multipathLength ),
            own.flags.isMultipathIpv6, LspPingMultipath::FamilyKnown{} };
}
inline LspPingLabels LspPingElementRef::labels() const noexcept {
   Data const & own = data();
   return { message_->bytes_.subspan( own.labelsOffset, own.labelsLength ),
            own.row != nullptr && own.row->facts.behind != LspPingBehind::labelStack };
}
inline LspPingElementRange LspPingElementRef::elements() const noexcept {
   return { *message_, data_ + 1, data_ + data().span };
}
inline LspPingElementRange::Iterator & LspPingElementRange::Iterator::operator++() noexcept {
   data_ += data_->span;
   return *this;
}

} // namespace LspPing
