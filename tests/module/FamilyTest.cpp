#include "tests/module/Subjects.h"

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/LspPingTypes.h"
#include "MplsUtils/LspPing/platform/Kiv/RangeException.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "tests/WireBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

// What holds for every type of the library, whichever it is: a new type is tested here as soon as
// it is listed.
namespace {

using Kiv::OpCode;
using Kiv::Outcome;
using ModuleTest::Random;

// Codes that are no operation, the library's inner request among them.
constexpr U32 otherCodes[] = { 2, 3, 9, 11, 100, 0xffffffff };

Kiv::TypeRef headerType( Kiv::TypeRef parser ) {
   return Kiv::attributeNamed( parser, "header" ).attribute->type();
}

void * headerOf( Kiv::TypeRef parser, void * object ) {
   void * header = nullptr;
   EXPECT_EQ( Kiv::attributeAccess( parser, object, Kiv::attributeNamed( parser, "header" ).field(),
                                    OpCode::read, &header ),
              Outcome::done );
   return header;
}

// One object of a type and, for a view, the bytes that it is.
class Subject {
 public:
   Subject( Kiv::TypeRef type, U8 fill ) : type_( type ), bytes_( byteCount( type ), fill ) {
      if( ModuleTest::isWireView( type ) ) {
         object_ = bytes_.data();
      } else if( type.operations().create != nullptr ) {
         // The Pad TLV's parser reads as many bytes as the TLV says of itself.
         std::vector< U8 > packet( 1 + byteCount( headerType( type ) ),
                                   type.name().ends_with( "PadTlvParser" ) ? U8{ 0 } : fill );
         pkt_ = Velnet::pktFactory( std::move( packet ) );
         node_ = type.operations().create( pkt_, 1 );
         object_ = node_.get();
         if( type == Kiv::typeOf< LspPing::LspPingPadTlvParser >() )
            pad_.reset( static_cast< LspPing::LspPingPadTlv * >( headerOf( type, object_ ) ) );
      } else if( type.operations().createEmpty != nullptr ) {
         node_ = type.operations().createEmpty();
         object_ = node_.get();
      } else if( type.operations().construct != nullptr ) {
         value_ = std::make_unique< Kiv::Instance >( type );
         object_ = value_->object();
      }
   }
   // Two bytes more for the view whose length, as filled here, makes it read type and length of an
   // identifier behind its own bytes.
   static std::size_t byteCount( Kiv::TypeRef type ) {
      if( type.name() == "LspPing::LspPingFec129Ipv4SubTlv" )
         return 16;
      return std::max< std::size_t >( type.record().size, 5 );
   }

   Kiv::TypeRef type() const { return type_; }
   void * object() const { return object_; }
   Orlo::Ptr< Orlo::Node > const & node() const { return node_; }
   WireBytes const & bytes() const { return bytes_; }
   Outcome access( Kiv::Field field, U32 code, void * buffer ) const {
      return Kiv::attributeAccess( type_, object_, field, static_cast< OpCode >( code ), buffer );
   }
   Orlo::String readings() const {
      return object_ != nullptr || type_.kind() == Kiv::Kind::constant
                ? ModuleTest::readings( type_, object_ )
                : Orlo::String{};
   }

 private:
   Kiv::TypeRef type_;
   WireBytes bytes_;
   Orlo::Ptr< Velnet::Pkt > pkt_;
   Orlo::Ptr< Orlo::Node > node_;
   std::unique_ptr< Kiv::Instance > value_;
   std::unique_ptr< LspPing::LspPingPadTlv > pad_;
   void * object_ = nullptr;
};

class Family : public testing::TestWithParam< Kiv::TypeRef > {
 protected:
   Kiv::TypeRef type() const { return GetParam(); }
};

// What can be read of an object before and after must be the same, and the bytes of a view too.
class Unchanged {
 public:
   explicit Unchanged( Subject const & subject )
      : subject_( subject ),
        bytes_( subject.bytes().copy() ),
        readings_( subject.readings() ) {}
   void expect() const {
      EXPECT_EQ( subject_.bytes().copy(), bytes_ );
      EXPECT_EQ( subject_.readings(), readings_ );
   }

 private:
   Subject const & subject_;
   std::vector< U8 > bytes_;
   Orlo::String readings_;
};

template < class T >
Kiv::TypeRef toldByAnObject() {
   if constexpr( std::is_base_of_v< Orlo::Node, T > ) {
      Subject const subject( Kiv::typeOf< T >(), 0 );
      return static_cast< T const * >( static_cast< Orlo::Node * >( subject.object() ) )->fwkType();
   } else {
      return T().fwkType();
   }
}

// Every class of the list, which is the module's, tells its place in it.
template < class... Ts >
void expectTold( U16 module, Kiv::TypeList< Ts... > ) {
   U16 index = 0;
   auto const expectOne = [&]< class T >( Kiv::Of< T > ) {
      Kiv::TypeId const place{ module, index++ };
      if constexpr( std::is_class_v< T > )
         EXPECT_EQ( toldByAnObject< T >().id(), place ) << Kiv::TypeRef( place ).name();
   };
   ( expectOne( Kiv::Of< Ts >{} ), ... );
}

TEST( FrameworkType, isToldByEveryClassOfBothModules ) {
   expectTold( LspPing::lspPingHdrModule, LspPing::LspPingHdrTypes() );
   expectTold( LspPing::lspPingTypesModule, LspPing::LspPingTypesTypes() );
}

TEST_P( Family, isNamedInItsNamespace ) {
   EXPECT_TRUE( type().name().starts_with( "LspPing::" ) );
   EXPECT_EQ( type().name().find( "::", 9 ), std::string_view::npos );
}

TEST_P( Family, hasConsecutiveIdsAndNamesOfItsOwn ) {
   std::set< std::string_view > names;
   for( Kiv::FoundAttribute const & found : ModuleTest::allAttributes( type() ) )
      EXPECT_TRUE( names.insert( found.attribute->name() ).second ) << found.attribute->name();
   std::span< Kiv::Attribute const > const own = type().attributes();
   for( std::size_t i = 1; i < own.size(); ++i )
      EXPECT_EQ( own[i].id, own[i - 1].id + 1 );
}

TEST_P( Family, findsEachAttributeByNameAndById ) {
   for( Kiv::FoundAttribute const & found : ModuleTest::allAttributes( type() ) ) {
      Kiv::Attribute const & attribute = *found.attribute;
      EXPECT_EQ( Kiv::attributeNamed( type(), attribute.name() ).attribute, &attribute );
      EXPECT_EQ( Kiv::attributeOf( type(), found.field() ).attribute, &attribute );
      if( found.declaring == type() )
         EXPECT_EQ( Kiv::attributeOf( type(), attribute.id ).attribute, &attribute );
   }
}

TEST_P( Family, givesEveryAttributeATypeThatIsRegistered ) {
   for( Kiv::Attribute const & attribute : type().attributes() ) {
      if( !attribute.callable() || attribute.signature->result != Kiv::BufferType{} ) {
         EXPECT_TRUE( attribute.type() ) << attribute.name();
         EXPECT_NE( attribute.type().kind(), Kiv::Kind::absent ) << attribute.name();
      }
      for( U8 i = 0; attribute.callable() && i < attribute.signature->count; ++i )
         EXPECT_TRUE( Kiv::TypeRef( attribute.signature->arguments[i].type ) ) << attribute.name();
   }
}

TEST_P( Family, refusesWhatAnAttributeDoesNotOfferAndChangesNothing ) {
   for( U8 const fill : someFills ) {
      Subject const subject( type(), fill );
      Unchanged const unchanged( subject );
      for( Kiv::FoundAttribute const & found : ModuleTest::allAttributes( type() ) ) {
         SCOPED_TRACE( found.attribute->name() );
         // A refused access does not look at its buffer.
         if( !found.attribute->readable() )
            EXPECT_EQ( subject.access( found.field(), 0, nullptr ), Outcome::notPermitted );
         if( !found.attribute->writable() )
            EXPECT_EQ( subject.access( found.field(), 1, nullptr ), Outcome::notPermitted );
         if( !found.attribute->callable() )
            EXPECT_EQ( subject.access( found.field(), 10, nullptr ), Outcome::notPermitted );
         for( U32 const code : otherCodes )
            EXPECT_EQ( subject.access( found.field(), code, nullptr ), Outcome::notPermitted );
      }
      unchanged.expect();
   }
}

TEST_P( Family, saysTwoForIdsThatNameNothingWhateverTheCode ) {
   Subject const subject( type(), 0xa5 );
   Unchanged const unchanged( subject );
   std::set< U16 > known;
   for( Kiv::FoundAttribute const & found : ModuleTest::allAttributes( type() ) )
      known.insert( found.attribute->id );
   for( U32 id = 0; id <= 0xffff; id = id < 300 ? id + 1 : id * 2 + 1 ) {
      if( known.contains( static_cast< U16 >( id ) ) )
         continue;
      for( U32 const code : { 0u, 1u, 10u, 2u, 3u, 11u } )
         EXPECT_EQ( subject.access( static_cast< U16 >( id ), code, nullptr ),
                    Outcome::noSuchAttribute )
            << id;
   }
   // A declaring type that is neither the type nor one of its bases.
   Kiv::TypeId const stranger{ 0, 0 };
   for( Kiv::FoundAttribute const & found : ModuleTest::allAttributes( type() ) ) {
      EXPECT_EQ( subject.access( Kiv::Field( stranger, found.attribute->id ), 0, nullptr ),
                 Outcome::noSuchAttribute );
   }
   unchanged.expect();
}

// Runs through every getter with the sanitizers watching, and finds that reading changes nothing.
TEST_P( Family, readsEveryAttributeOverAnyBytes ) {
   for( U8 const fill : someFills ) {
      Subject const subject( type(), fill );
      std::vector< U8 > const before = subject.bytes().copy();
      Orlo::String const first = subject.readings();
      EXPECT_EQ( subject.readings(), first );
      EXPECT_EQ( subject.bytes().copy(), before );
      bool const readable = std::any_of( type().attributes().begin(), type().attributes().end(),
                                         []( auto const & row ) { return row.readable(); } );
      EXPECT_EQ( first.empty(), !readable );
   }
}

// What a field keeps of a value that is written into it.
U32 keptBits( std::string_view attribute ) {
   if( attribute == "label" || attribute == "labelNbo" )
      return 0xfffff;
   return attribute == "mbz" ? 0xfff : 0xffffffff;
}

TEST_P( Family, readsBackWhatWasWritten ) {
   Random random( 20260131 );
   for( int round = 0; round < 20; ++round ) {
      for( Kiv::FoundAttribute const & found : ModuleTest::allAttributes( type() ) ) {
         Kiv::Attribute const & attribute = *found.attribute;
         if( !attribute.writable() || attribute.reach != Kiv::Reach::value ||
             attribute.type().name() == "Pseudowire::PseudowireGenId" )
            continue;
         SCOPED_TRACE( attribute.name() );
         Subject const subject( type(), 0xa5 );
         auto const written = ModuleTest::randomValue( attribute.type(), random );
         if( attribute.typeId == Kiv::typeIdOf< U32 > )
            written->as< U32 >() &= keptBits( attribute.name() );
         Kiv::Instance got( attribute.type() );
         Kiv::Entry in{ static_cast< U32 >( random() % 256 ), written->object() };
         Kiv::Entry out{ in.key, got.object() };
         bool const keyed = attribute.collection();
         EXPECT_EQ( subject.access( found.field(), 1,
                                    keyed ? static_cast< void * >( &in ) : written->object() ),
                    Outcome::done );
         EXPECT_EQ( subject.access( found.field(), 0,
                                    keyed ? static_cast< void * >( &out ) : got.object() ),
                    Outcome::done );
         EXPECT_EQ( KivOrlo::valueToStrep( attribute.type(), got.object() ),
                    KivOrlo::valueToStrep( attribute.type(), written->object() ) );
         EXPECT_TRUE( attribute.type().operations().equal( got.object(), written->object() ) );
      }
   }
}

// Two fields that overlap are two faces of one: the raw and the host-order form.
TEST_P( Family, changesNoFieldButTheOneThatIsWritten ) {
   if( !ModuleTest::isWireView( type() ) )
      return;
   Random random( 7 );
   for( Kiv::FoundAttribute const & found : ModuleTest::allAttributes( type() ) ) {
      Kiv::Attribute const & attribute = *found.attribute;
      if( !attribute.writable() || attribute.type().name() == "Pseudowire::PseudowireGenId" )
         continue;
      SCOPED_TRACE( attribute.name() );
      std::size_t changedBytes = 0;
      std::set< std::size_t > places;
      for( int round = 0; round < 200; ++round ) {
         Subject const subject( type(), 0xa5 );
         auto const written = ModuleTest::randomValue( attribute.type(), random );
         ASSERT_EQ( subject.access( found.field(), 1, written->object() ), Outcome::done );
         for( std::size_t i = 0; i < subject.bytes().bytes().size(); ++i )
            if( subject.bytes().data()[i] != 0xa5 )
               places.insert( i );
      }
      changedBytes = places.size();
      EXPECT_GE( changedBytes, 1u );
      EXPECT_LE( changedBytes, attribute.type().record().size );
      EXPECT_EQ( *places.rbegin() - *places.begin() + 1, changedBytes ) << "bytes side by side";
   }
}

TEST_P( Family, writesPointersAsTheyAre ) {
   if( type().operations().createEmpty == nullptr )
      return;
   Subject const subject( type(), 0 );
   U8 bytes[64] = {};
   for( Kiv::Attribute const & attribute : type().attributes() ) {
      if( !attribute.writable() || attribute.reach != Kiv::Reach::pointer )
         continue;
      void * written = bytes;
      void * read = nullptr;
      EXPECT_EQ( subject.access( attribute.id, 1, &written ), Outcome::done );
      EXPECT_EQ( subject.access( attribute.id, 0, &read ), Outcome::done );
      EXPECT_EQ( read, bytes ) << attribute.name();
   }
}

TEST_P( Family, hasTheOperationsOfItsKind ) {
   Kiv::Operations const & operations = type().operations();
   bool const kept = type().kind() == Kiv::Kind::value ||
                     type().kind() == Kiv::Kind::pointerInterface ||
                     type().kind() == Kiv::Kind::enumeration;
   EXPECT_EQ( operations.construct != nullptr, kept );
   EXPECT_EQ( operations.destruct != nullptr, kept );
   bool const isNode = type().kind() == Kiv::Kind::object;
   EXPECT_EQ( operations.create != nullptr, isNode && type().name().ends_with( "Parser" ) );
   EXPECT_EQ( operations.createEmpty != nullptr, isNode && type().name().ends_with( "Container" ) );
   if( type().kind() == Kiv::Kind::value ) {
      EXPECT_NE( operations.equal, nullptr );
      EXPECT_NE( operations.assign, nullptr );
      EXPECT_NE( operations.parse, nullptr );
   }
   bool const hashable = type().kind() == Kiv::Kind::pointerInterface ||
                         type().name().ends_with( "SubTlvLabel" ) ||
                         type().name().ends_with( "LabelEntry" );
   EXPECT_EQ( type().hashable(), hashable );
}

TEST_P( Family, isNotCreatedWithoutAPacket ) {
   if( type().operations().create == nullptr )
      return;
   EXPECT_DEATH( type().operations().create( nullptr, 0 ), "assertion \"pkt != nullptr\" failed" );
}

TEST_P( Family, isNotCreatedOverAnythingButAPacket ) {
   if( type().operations().create == nullptr )
      return;
   Subject const other( type(), 0 );
   EXPECT_DEATH( type().operations().create( other.node(), 0 ), "assertion .*fwkType.* failed" );
}

TEST_P( Family, countsItsNodesAndNoLongerWhenTheyAreGone ) {
   if( type().kind() != Kiv::Kind::object )
      return;
   ASSERT_NE( type().record().tracker, nullptr );
   U64 const before = type().record().tracker->live();
   {
      Subject const subject( type(), 0 );
      EXPECT_EQ( type().record().tracker->live(), before + 1 );
   }
   EXPECT_EQ( type().record().tracker->live(), before );
}

TEST_P( Family, copiesValuesThatAreEqualAndPrintAlike ) {
   if( type().kind() != Kiv::Kind::value )
      return;
   Random random( 99 );
   auto const value = ModuleTest::randomValue( type(), random );
   Kiv::Instance copy( type(), value->object() );
   Kiv::Operations const & operations = type().operations();
   EXPECT_TRUE( operations.equal( value->object(), copy.object() ) );
   Orlo::String const text = KivOrlo::valueToStrep( type(), value->object() );
   EXPECT_EQ( KivOrlo::valueToStrep( type(), copy.object() ), text );
   Kiv::Instance assigned( type() );
   operations.assign( assigned.object(), value->object() );
   EXPECT_TRUE( operations.equal( assigned.object(), value->object() ) );
}

// Every parser reads through its view what the view reads itself.
TEST_P( Family, forwardsWhatTheViewReads ) {
   if( type().operations().create == nullptr )
      return;
   for( U8 const fill : someFills ) {
      Subject const subject( type(), fill );
      void * const view = headerOf( type(), subject.object() );
      std::size_t compared = 0;
      for( Kiv::Attribute const & attribute : type().attributes() ) {
         if( !attribute.forwarded() || attribute.collection() )
            continue;
         SCOPED_TRACE( attribute.name() );
         Kiv::FoundAttribute const direct =
            Kiv::attributeNamed( headerType( type() ), attribute.name() );
         if( !direct )
            continue;
         Kiv::Instance forwarded( attribute.type() );
         Kiv::Instance read( attribute.type() );
         EXPECT_EQ( subject.access( attribute.id, 0, forwarded.object() ), Outcome::done );
         EXPECT_EQ( Kiv::attributeAccess( headerType( type() ), view, direct.field(), OpCode::read,
                                          read.object() ),
                    Outcome::done );
         EXPECT_TRUE( attribute.type().operations().equal( forwarded.object(), read.object() ) );
         ++compared;
      }
      EXPECT_GE( compared, 2u );
   }
}

std::string testName( testing::TestParamInfo< Kiv::TypeRef > const & info ) {
   return std::string( info.param.name().substr( 9 ) );
}

INSTANTIATE_TEST_SUITE_P( EveryType, Family, testing::ValuesIn( ModuleTest::libraryTypes() ),
                          testName );

} // namespace
