#include "tests/memory/Allocations.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"
#include "MplsUtils/LspPing/platform/Kiv/Instance.h"
#include "MplsUtils/LspPing/platform/Kiv/RbTreeMap.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <type_traits>

// An assignment that runs out of memory raises std::bad_alloc and leaves its target as it was.
namespace LspPing {
namespace {

using MemoryTest::MemoryFor;

template < class T >
constexpr bool mayFailToCopyButNotToMove =
   !std::is_nothrow_copy_assignable_v< T > && !std::is_nothrow_copy_constructible_v< T > &&
   std::is_nothrow_move_assignable_v< T > && std::is_nothrow_move_constructible_v< T >;

static_assert( mayFailToCopyButNotToMove< Kiv::RbTreeMap< U8, U32 > > );
static_assert( mayFailToCopyButNotToMove< Kiv::DynArray< U8 > > );
static_assert( mayFailToCopyButNotToMove< LspPingFecStack > );
static_assert( mayFailToCopyButNotToMove< LspPingFecStackChangeInfo > );
static_assert( mayFailToCopyButNotToMove< LspPingDownstreamLabelStack > );
static_assert( mayFailToCopyButNotToMove< LspPingMultipathBitset > );
static_assert( mayFailToCopyButNotToMove< LspPingDownstreamMappingInfo > );
static_assert( mayFailToCopyButNotToMove< LspPingDownstreamMappingInfoSet > );
static_assert( mayFailToCopyButNotToMove< LspPingIntfAndLabelStackInfo > );
static_assert( mayFailToCopyButNotToMove< LspPingPadInfo > );
static_assert( mayFailToCopyButNotToMove< LspPingPadTlv > );

LspPingFecStack stackOf( U8 first, U8 count ) {
   LspPingFecStack stack;
   LspPingFecInfo fec;
   for( U8 position = first; position < first + count; ++position ) {
      fec.rdIs( position );
      stack.fecInfoIs( position, fec );
   }
   return stack;
}

LspPingFecStackChangeInfo changeOf( U8 first, U8 count ) {
   LspPingFecStackChangeInfo change;
   change.popTlvInfoIs( stackOf( first, count ) );
   change.pushTlvInfoIs( stackOf( static_cast< U8 >( first + 1 ), count ) );
   return change;
}

LspPingDownstreamLabelStack labelsOf( U8 first, U8 count ) {
   LspPingDownstreamLabelStack labels;
   for( U8 i = 0; i < count; ++i )
      labels.labelEntryIs( i, { first, i, 1, 2 } );
   labels.sizeIs( count );
   return labels;
}

LspPingMultipathBitset bitsOf( U8 first, U8 count ) {
   LspPingMultipathBitset bits( count );
   for( U8 i = 0; i < count; ++i )
      bits.bitsetIs( i, static_cast< U8 >( first + i ) );
   return bits;
}

LspPingDownstreamMappingInfo mappingOf( U8 first, U8 count ) {
   return { 1500,
            first,
            2,
            Velnet::IpGenAddr(),
            Velnet::IpGenAddr(),
            8,
            count,
            Velnet::IpGenAddr(),
            bitsOf( first, count ),
            labelsOf( first, count ),
            changeOf( first, count ),
            Velnet::IntfId(),
            LspPingReturnCode::seeDdmTlv,
            first,
            true };
}

LspPingDownstreamMappingInfoSet setOf( U8 first, U8 count ) {
   LspPingDownstreamMappingInfoSet set( first == 1 ? LspPingDownstreamMappingType::downstreamMap
                                                   : LspPingDownstreamMappingType{} );
   for( U8 key = first; key < first + count; ++key )
      set.lspPingDownstreamMappingInfoIs( key, mappingOf( key, 2 ) );
   return set;
}

LspPingIntfAndLabelStackInfo arrivalOf( U8 first, U8 count ) {
   Velnet::MplsLabelStack labels;
   for( U8 i = 0; i < count; ++i )
      labels.entryAdd( Velnet::MplsLabelEntry() );
   return { first, Velnet::IpGenAddr(), Velnet::IpGenAddr(), count, labels, first == 1 };
}

LspPingPadInfo padInfoOf( U8 first, U8 count ) {
   LspPingPadInfo pad( first, first == 1 );
   for( U8 i = 0; i < count; ++i )
      pad.paddingIs( i, static_cast< U8 >( first + i ) );
   pad.lengthIs( count );
   return pad;
}

LspPingPadTlv padOf( U8 first, U8 count ) {
   LspPingPadTlv pad;
   pad.typeIs( 3 );
   pad.padTypeIs( first );
   pad.lengthIs( static_cast< U16 >( count + 1 ) );
   for( U8 i = 0; i < count; ++i )
      pad.paddingIs( i, static_cast< U8 >( first + i ) );
   return pad;
}

template < class T >
Orlo::String textOf( T const & value ) {
   if constexpr( std::is_same_v< T, LspPingPadTlv > )
      return value.stringValue() + std::to_string( value.padding().end() );
   else
      return KivOrlo::valueToStrep( Kiv::typeOf< T >(), &value );
}

// Lets every allocation of the assignment fail in turn, then none.
template < class T >
void expectWhole( std::function< T( U8, U8 ) > const & make,
                  std::function< void( T &, T const & ) > const & assign ) {
   T const source = make( 1, 40 );
   Orlo::String const sourceText = textOf( source );
   for( U8 const held : { U8{ 0 }, U8{ 3 } } ) {
      T target = make( 2, held );
      Orlo::String const before = textOf( target );
      ASSERT_NE( before, sourceText );
      std::size_t failures = 0;
      for( ;; ++failures ) {
         bool failed = false;
         {
            MemoryFor const memory( failures );
            try {
               assign( target, source );
            } catch( std::bad_alloc const & ) {
               failed = true;
            }
         }
         if( !failed )
            break;
         ASSERT_EQ( textOf( target ), before ) << failures;
      }
      EXPECT_GE( failures, 1u );
      EXPECT_EQ( textOf( target ), sourceText );
      EXPECT_EQ( textOf( source ), sourceText );
   }
}

template < class T >
void expectWholeInEveryWay( T ( &make )( U8, U8 ) ) {
   expectWhole< T >(
      make, []( T & target, T const & source ) { target = source; } );
   expectWhole< T >( make, []( T & target, T const & source ) {
      Kiv::typeOf< T >().operations().assign( &target, &source );
   } );
   T moved = make( 2, 3 );
   T from = make( 1, 40 );
   {
      MemoryFor const none( 0 );
      moved = std::move( from );
   }
   EXPECT_EQ( textOf( moved ), textOf( make( 1, 40 ) ) );
   T & itself = moved;
   moved = itself;
   EXPECT_EQ( textOf( moved ), textOf( make( 1, 40 ) ) );
}

TEST( Assignment, isWholeOrNotAtAllForEveryRecordThatAllocates ) {
   expectWholeInEveryWay( stackOf );
   expectWholeInEveryWay( changeOf );
   expectWholeInEveryWay( labelsOf );
   expectWholeInEveryWay( bitsOf );
   expectWholeInEveryWay( mappingOf );
   expectWholeInEveryWay( setOf );
   expectWholeInEveryWay( arrivalOf );
   expectWholeInEveryWay( padInfoOf );
   expectWholeInEveryWay( padOf );
}

TEST( Assignment, leavesAnEntryWholeThatIsWrittenInItsPlace ) {
   using Set = LspPingDownstreamMappingInfoSet;
   expectWhole< Set >(
      []( U8 first, U8 count ) {
         Set set;
         set.lspPingDownstreamMappingInfoIs( 7, mappingOf( first, count ) );
         return set;
      },
      []( Set & target, Set const & source ) {
         target.lspPingDownstreamMappingInfoIs( 7, source.lspPingDownstreamMappingInfo( 7 ) );
      } );
}

TEST( ArrayDeathTest, endsTheProcessWhenItCannotGrow ) {
   EXPECT_EXIT(
      {
         Kiv::DynArray< U8 > array;
         MemoryFor const none( 0 );
         array.entryIs( 100, 1 );
      },
      testing::KilledBySignal( SIGABRT ), testing::Eq( "Kiv::DynArray: out of memory\n" ) );
}

} // namespace
} // namespace LspPing
