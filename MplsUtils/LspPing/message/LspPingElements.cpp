#include "MplsUtils/LspPing/message/LspPingElements.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/ext/LspPingExt.h"
#include "MplsUtils/LspPing/ext/LspPingExtModule.h"
#include "MplsUtils/LspPing/message/LspPingElementTable.h"
#include "MplsUtils/LspPing/message/LspPingUsualElements.h"
#include "MplsUtils/LspPing/platform/Kiv/EnumType.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace LspPing {

namespace {

using Flaw = LspPingFlaw;
using Code = LspPingProblemCode;

// Whoever asks has checked that the view's bytes are there, and views have no alignment.
template < class View >
View const & laid( U8 const * element ) noexcept {
   U32 const offset = View::element.isOverValue ? sizeof( LspPingTlvHdr ) : 0;
   return *reinterpret_cast< View const * >( element + offset );
}

// The views that are laid over the value have containers that decide; they take what has enough
// bytes for its address type. That of the Interface and Label Stack takes no unknown one.
template < class View >
constexpr bool isValid( View const & view, U32 length ) noexcept {
   if constexpr( requires { view.valid(); } )
      return view.valid();
   else
      return length >= View::element.leastLength &&
             !std::is_same_v< View, LspPingIntfAndLabelStackHdr >;
}

template < class View >
bool validOf( U8 const * element, U32 length ) noexcept {
   return isValid( laid< View >( element ), length );
}

// The Pad TLV's class holds a copy of the value; this asks the same of the bytes.
bool padValid( U8 const * element, U32 length ) noexcept {
   return length >= 1 && ( element[4] == static_cast< U8 >( LspPingPadType::dropPadding ) ||
                           element[4] == static_cast< U8 >( LspPingPadType::copyPadding ) );
}

constexpr Flaw prefixFlaw( U32 bits, U32 longest ) noexcept {
   return bits > longest ? Flaw{ { Code::prefixTooLong, { bits, longest } } } : Flaw{};
}

// Of a multipoint LDP FEC, RFC 6425 section 3.1.2.1.
constexpr Flaw rootFlaw( U32 family, U32 length ) noexcept {
   U32 const expected = family == 1 ? 4 : 16;
   if( family != 1 && family != 2 )
      return { { Code::familyUnknown, { family } } };
   if( length != expected )
      return { { Code::rootLengthWrong, { length, expected } } };
   return {};
}

// What contradicts the RFC that defines the element. Most say no more than the view does.
template < class View >
constexpr Flaw flawIn( View const & view, bool isValid ) noexcept {
   if constexpr( requires { view.prefixLen(); } ) {
      if( Flaw const flaw = prefixFlaw( view.prefixLen(), 8 * sizeof( view.ipPrefix() ) ) )
         return flaw;
   }
   if constexpr( requires { view.rootAddr(), view.family(), view.addrLen(); } ) {
      if( Flaw const flaw = rootFlaw( view.family(), view.addrLen() ) )
         return flaw;
   }
   return isValid ? Flaw{} : Flaw{ { Code::notValid } };
}

// RFC 8029 section 3.2.9 has a place for more pseudowires than the view.
constexpr Flaw flawIn( LspPingFec128Ipv4SubTlv const & fec, bool ) noexcept {
   constexpr U32 mbzSize = sizeof( fec.mbz() );
   return fec.mbz() == 0 ? Flaw{} : Flaw{ { Code::notZero }, sizeof( fec ) - mbzSize, mbzSize };
}

// Whether the identifiers fit is seen where they are walked. All types and lengths zero name
// nothing.
template < class View >
requires requires {
   View::minTlvLength;
}
Flaw flawIn( View const & fec, bool ) noexcept {
   static constexpr std::array< U8, 6 > nothing{};
   U8 const * const identifiers = reinterpret_cast< U8 const * >( &fec ) + sizeof( fec );
   return std::memcmp( identifiers, nothing.data(), nothing.size() ) == 0
             ? Flaw{ { Code::noIdentifiers } }
             : Flaw{};
}

template < class View >
Flaw flawOf( U8 const * element, U32 length ) noexcept {
   return flawIn( laid< View >( element ), validOf< View >( element, length ) );
}

template < class View >
LspPingVerdict verdictOf( U8 const * element, U32 length ) noexcept {
   bool const isValid = validOf< View >( element, length );
   return { isValid, static_cast< bool >( flawIn( laid< View >( element ), isValid ) ) };
}

constexpr LspPingElement withCode( LspPingElement facts, std::size_t i ) noexcept {
   if( !facts.isCodeRange )
      facts.codes = { facts.codes[i] };
   facts.codeCount = 1;
   return facts;
}

template < class View >
void appendTextOf( Orlo::StringBuilder & out, U8 const * element ) {
   out.append( laid< View >( element ).stringValue() );
}

// The views of most elements say no more than their facts and a prefix length do. It is found here
// where that is, and two fillings tell whether there is more to ask; a test holds this against the
// views with all values of each byte.
template < class View >
constexpr LspPingUsualElement usualOf( LspPingElementRow const & row ) noexcept {
   LspPingUsualElement usual = lspPingUsualOf( row );
   std::array< U8, sizeof( View ) > const zeros = lspPingFilledWith< View >( 0, row.facts );
   std::array< U8, sizeof( View ) > ones = lspPingFilledWith< View >( 0xff, row.facts );
   if constexpr( requires( View const & view ) { view.prefixLen(); } ) {
      for( U8 at = sizeof( LspPingTlvHdr ); usual.prefixAt == 0; ++at ) {
         std::array< U8, sizeof( View ) > probe = zeros;
         probe[at] = 1;
         if( std::bit_cast< View >( probe ).prefixLen() == 1 )
            usual.prefixAt = at;
      }
      usual.longestPrefix = 8 * sizeof( std::bit_cast< View >( zeros ).ipPrefix() );
      ones[usual.prefixAt] = 0;
   }
   for( auto const & bytes : { zeros, ones } ) {
      View const view = std::bit_cast< View >( bytes );
      if( !isValid( view, row.facts.leastLength ) || flawIn( view, true ) )
         usual.lengthCount = 0;
   }
   return usual;
}

template < class View >
constexpr LspPingElementRow rowOf( LspPingElement facts ) noexcept {
   LspPingElementRow row{ .facts = facts, .type = Kiv::typeIdOf< View > };
   if constexpr( requires { View::kivCopyOf; } ) {
      row.verdict = []( U8 const * element, U32 length ) noexcept -> LspPingVerdict {
         bool const isValid = padValid( element, length );
         return { isValid, !isValid };
      };
      row.flaw = []( U8 const * element, U32 length ) noexcept {
         return padValid( element, length ) ? Flaw{} : Flaw{ { Code::notValid } };
      };
   } else {
      row.viewSize = sizeof( View );
      row.readsValue =
         facts.behind == LspPingBehind::identifiers || facts.behind == LspPingBehind::tail;
      row.verdict = &verdictOf< View >;
      row.flaw = &flawOf< View >;
      if constexpr( lspPingIsUsual( View::element.behind ) )
         row.usual = usualOf< View >( row );
      if constexpr( requires( View const & view ) { view.stringValue(); } )
         row.appendText = &appendTextOf< View >;
   }
   return row;
}

constexpr LspPingElementRow unviewed( LspPingElement facts ) noexcept {
   LspPingElementRow row{ .facts = facts };
   row.usual = lspPingUsualOf( row );
   return row;
}

// Elements that no class describes.
constexpr auto unviewedRows = std::to_array< LspPingElementRow >( {
   unviewed( LspPingOpenedByCode::fecStack ),
   unviewed( LspPingOpenedByCode::responders ),
} );

template < class T >
constexpr std::size_t rowCount() noexcept {
   if constexpr( requires { T::element; } )
      return T::element.codeCount;
   else
      return 0;
}

// Rows that need more bytes to be theirs come first.
constexpr bool comesBefore( LspPingElementRow const & a, LspPingElementRow const & b ) noexcept {
   if( a.facts.context != b.facts.context )
      return a.facts.context < b.facts.context;
   if( a.code() != b.code() )
      return a.code() < b.code();
   return a.facts.selectorCount > b.facts.selectorCount;
}

struct Class {
   Kiv::TypeId type;
   LspPingElement facts;
};

// Collects what the classes of the modules say of themselves.
template < class... Lists >
struct Rows;
template < class... Ts, class... Others >
struct Rows< Kiv::TypeList< Ts... >, Kiv::TypeList< Others... > > {
   // Calls what is given with each class that is an element.
   static constexpr void forEach( auto const & take ) noexcept {
      auto const takeOne = [&]< class T >( Kiv::Of< T > one ) {
         if constexpr( rowCount< T >() > 0 )
            take( one );
      };
      ( takeOne( Kiv::Of< Ts >{} ), ... );
      ( takeOne( Kiv::Of< Others >{} ), ... );
   }

   static constexpr std::size_t classCount = ( ( rowCount< Ts >() > 0 ? 1u : 0u ) + ... ) +
                                             ( ( rowCount< Others >() > 0 ? 1u : 0u ) + ... );
   static constexpr auto classes() noexcept {
      std::array< Class, classCount > result{};
      std::size_t at = 0;
      forEach( [&]< class T >( Kiv::Of< T > ) {
         result[at++] = { Kiv::typeIdOf< T >, T::element };
      } );
      return result;
   }

   static constexpr std::size_t describedCount =
      ( rowCount< Ts >() + ... ) + ( rowCount< Others >() + ... );
   // A place is found while a row is added: std::stable_sort cannot run while compiling.
   template < std::size_t n >
   static constexpr void add( std::array< LspPingElementRow, n > & rows, std::size_t & count,
                              LspPingElementRow const & row ) noexcept {
      std::size_t at = count++;
      for( ; at > 0 && comesBefore( row, rows[at - 1] ); --at )
         rows[at] = rows[at - 1];
      rows[at] = row;
   }
   static constexpr auto known() noexcept {
      std::array< LspPingElementRow, describedCount + unviewedRows.size() > rows{};
      std::size_t count = 0;
      forEach( [&]< class T >( Kiv::Of< T > ) {
         for( std::size_t i = 0; i < T::element.codeCount; ++i )
            add( rows, count, rowOf< T >( withCode( T::element, i ) ) );
      } );
      for( LspPingElementRow const & row : unviewedRows )
         add( rows, count, row );
      return rows;
   }
};

constexpr auto knownRows = Rows< LspPingHdrTypes, LspPingExtTypes >::known();

// Whether the row is the last one of its code, and takes its bytes only where they select it.
constexpr bool isLastAndSelected( std::size_t i ) noexcept {
   auto const & row = knownRows[i];
   if( row.facts.selectorCount == 0 )
      return false;
   return i + 1 == knownRows.size() || knownRows[i + 1].facts.context != row.facts.context ||
          knownRows[i + 1].code() != row.code();
}

constexpr bool isInRange( LspPingElementRow const & row ) noexcept {
   return std::any_of(
      knownRows.begin(), knownRows.end(),
      [&]( LspPingElementRow const & other ) {
         return other.facts.isCodeRange && other.facts.context == row.facts.context &&
                other.facts.hasCode( row.code() );
      } );
}

// Where the bytes select none of the rows, one without a class says so.
constexpr LspPingElementRow noneOf( LspPingElementRow const & row ) noexcept {
   LspPingElement facts;
   facts.context = row.facts.context;
   facts.codes = { row.code() };
   facts.codeCount = 1;
   facts.chooser = row.facts.selectors[0].offset;
   facts.otherChooser = row.facts.selectorCount > 1 ? row.facts.selectors[1].offset : 0;
   std::size_t const read = std::max( facts.chooser, facts.otherChooser ) + std::size_t{ 1 };
   facts.leastLength = static_cast< U16 >( read > row.headerSize() ? read - row.headerSize() : 0 );
   facts.words = row.facts.words;
   return unviewed( facts );
}

constexpr bool needsNone( std::size_t i ) noexcept {
   return isLastAndSelected( i ) && !isInRange( knownRows[i] );
}

constexpr auto rows = [] {
   constexpr std::size_t more = [] {
      std::size_t count = 0;
      for( std::size_t i = 0; i < knownRows.size(); ++i )
         count += needsNone( i ) ? 1 : 0;
      return count;
   }();
   std::array< LspPingElementRow, knownRows.size() + more > all{};
   std::size_t at = 0;
   for( std::size_t i = 0; i < knownRows.size(); ++i ) {
      all[at++] = knownRows[i];
      if( needsNone( i ) )
         all[at++] = noneOf( knownRows[i] );
   }
   return all;
}();
constexpr auto classes = Rows< LspPingHdrTypes, LspPingExtTypes >::classes();

// The enumerations that say what codes mean, by context: those of module LspPingTypes, and those of
// module LspPingExt, which add to them or make contexts of their own.
struct Codes {
   Kiv::EnumerationTable const * told = nullptr;
   Kiv::EnumerationTable const * more = nullptr;
};

template < class... Lists >
struct CodesOf;
template < class... Ts, class... Others >
struct CodesOf< Kiv::TypeList< Ts... >, Kiv::TypeList< Others... > > {
   static constexpr auto tables() noexcept {
      std::array< Codes, lspPingContextCount > codes{};
      auto const add = [&]< class T >( Kiv::Of< T >, auto Codes::*table ) {
         if constexpr( LspPingCodes< T > )
            if( auto const at = static_cast< std::size_t >( lspPingContextOf< T > );
                at < codes.size() )
               codes[at].*table = &Kiv::EnumerationOf< T >::table;
      };
      ( add( Kiv::Of< Ts >{}, &Codes::told ), ... );
      ( add( Kiv::Of< Others >{}, &Codes::more ), ... );
      return codes;
   }
};
constexpr auto codesOf = CodesOf< LspPingTypesTypes, LspPingExtTypes >::tables();

// In the order of the enumerators.
constexpr auto behindNames = std::to_array< std::string_view >( {
   "nothing",
   "elements",
   "tlvs",
   "fecs",
   "counted",
   "subTlvs",
   "stackChangeFec",
   "responderTlvs",
   "opaqueValues",
   "identifiers",
   "multipath",
   "mappingLabels",
   "protocolLabels",
   "labelStack",
   "padding",
   "tail",
} );
static_assert( behindNames.size() == static_cast< std::size_t >( LspPingBehind::tail ) + 1 );

LspPingElementRow const * firstRow( LspPingContext context, U32 code ) noexcept {
   LspPingElementRow const * const end = rows.data() + rows.size();
   if( code < lspPingSmallCodeCount ) {
      U8 const first = lspPingSmallCodeRows[static_cast< std::size_t >( context )][code];
      return first != lspPingNoRow ? rows.data() + first : end;
   }
   auto const * const found =
      std::partition_point( rows.data(), end, [&]( LspPingElementRow const & row ) {
         return row.facts.context < context ||
                ( row.facts.context == context && row.code() < code );
      } );
   return found != end && found->facts.context == context && found->code() == code ? found : end;
}

// For codes that nothing else has, or not with such bytes. What is too short to begin with an
// enterprise number is well-formed all the same, and known to nobody.
LspPingElementRow const * rangeRow( LspPingContext context, U32 code,
                                    std::span< U8 const > bytes ) noexcept {
   static constexpr std::size_t first = [] {
      std::size_t i = 0;
      while( !rows[i].facts.isCodeRange )
         ++i;
      return i;
   }();
   LspPingElementRow const & row = rows[first];
   if( row.facts.context != context || !row.facts.hasCode( code ) )
      return nullptr;
   bool const isTooShort =
      bytes.size() >= row.headerSize() && ( bytes[2] << 8 | bytes[3] ) < row.facts.leastLength;
   return isTooShort ? nullptr : &row;
}

// A row that others of its code come before. It is taken instead of one that its bytes select but
// are too few for, if it says nothing of the selecting byte.
bool isFallback( LspPingElementRow const & row ) noexcept {
   return row.facts.selectorCount == 0 && row.facts.chooser == 0;
}

} // namespace

static_assert( rows.size() < lspPingNoRow );
constexpr std::array< std::array< U8, lspPingSmallCodeCount >, lspPingContextCount >
   lspPingSmallCodeRows = [] {
      std::array< std::array< U8, lspPingSmallCodeCount >, lspPingContextCount > first{};
      for( auto & codes : first )
         codes.fill( lspPingNoRow );
      for( std::size_t i = rows.size(); i-- > 0; )
         if( rows[i].code() < lspPingSmallCodeCount )
            first[static_cast< std::size_t >( rows[i].facts.context )][rows[i].code()] =
               static_cast< U8 >( i );
      return first;
   }();
constinit LspPingElementRow const * const lspPingRows = rows.data();

LspPingElementRow const * elementOf( LspPingContext context, U32 code,
                                     std::span< U8 const > bytes ) noexcept {
   LspPingElementRow const * const end = rows.data() + rows.size();
   LspPingElementRow const * row = firstRow( context, code );
   if( row == end )
      return rangeRow( context, code, bytes );
   if( row->facts.selectorCount == 0 )
      return row;
   LspPingElementRow const * selected = nullptr;
   for( ; row != end && row->facts.context == context && row->code() == code; ++row ) {
      if( selected != nullptr )
         return isFallback( *row ) ? row : selected;
      if( !row->facts.isSelectedBy( bytes ) )
         continue;
      if( row->facts.selectorCount == 0 || bytes.size() >= row->shortestSize() )
         return row;
      selected = row;
   }
   return selected != nullptr ? selected : rangeRow( context, code, bytes );
}

std::span< LspPingElementRow const > lspPingElements() noexcept {
   return rows;
}

LspPingElement const * lspPingElementOf( Kiv::TypeId type ) noexcept {
   for( auto const & known : classes )
      if( known.type == type )
         return &known.facts;
   return nullptr;
}

std::string_view lspPingContextName( LspPingContext context ) noexcept {
   switch( context ) {
   case LspPingContext::message:
      return "message";
   case LspPingContext::targetFec:
      return "targetFec";
   case LspPingContext::ddmap:
      return "ddmap";
   case LspPingContext::p2mpResponder:
      return "p2mpResponder";
   case LspPingContext::vendorPrivate:
      return "vendorPrivate";
   case LspPingContext::opaqueValue:
      return "opaqueValue";
   }
   Codes const & codes = codesOf[static_cast< std::size_t >( context )];
   return ( codes.told != nullptr ? codes.told : codes.more )->typeName;
}

std::string_view lspPingBehindName( LspPingBehind behind ) noexcept {
   return behindNames[static_cast< std::size_t >( behind )];
}

std::string_view lspPingCodeName( LspPingContext context, U32 code ) noexcept {
   Codes const & codes = codesOf[static_cast< std::size_t >( context )];
   std::string_view name;
   // Of a code that was assigned later, module LspPingTypes says only that it is not.
   if( codes.more != nullptr )
      name = Kiv::EnumType< U32 >( *codes.more ).name( code );
   if( name.empty() && codes.told != nullptr )
      name = Kiv::EnumType< U32 >( *codes.told ).name( code );
   return name;
}

} // namespace LspPing
