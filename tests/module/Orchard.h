#pragma once

#include "MplsUtils/LspPing/platform/Kiv/AllocationTracker.h"
#include "MplsUtils/LspPing/platform/Kiv/Attributes.h"
#include "MplsUtils/LspPing/platform/Kiv/CharRange.h"
#include "MplsUtils/LspPing/platform/Kiv/DynArray.h"
#include "MplsUtils/LspPing/platform/Kiv/Enumeration.h"
#include "MplsUtils/LspPing/platform/Kiv/RbTreeMap.h"
#include "MplsUtils/LspPing/platform/Orlo/Node.h"

// A module that is not the library's: how anyone registers types of their own. A list of the types,
// a free number, and one line for the table.
namespace Orchard {

KIV_ENUMERATION( Fruit, U8, apple = 1, pear = 7, quince = 200 );

using ModuleTypes =
   Kiv::TypeList< Fruit, class Weight, class Basket, class Plant, class Tree, class AppleTree,
                  class Farm, class FarmReader, Kiv::Kept< class Hidden > >;

inline constexpr U16 moduleNumber = 40;

template < class T >
requires ModuleTypes::contains< T >
constexpr Kiv::TypeId kivTypeId( Kiv::Of< T > ) noexcept {
   return { moduleNumber, ModuleTypes::indexOf< T >() };
}

/// Registers the module on the first call.
void registerModule();

/// A record that can be read from text.
class Weight {
 public:
   Weight() = default;
   Weight( U32 grams, Fruit fruit ) : grams_( grams ), fruit_( fruit ) {}
   explicit Weight( Kiv::CharRange & in );

   U32 grams() const { return grams_; }
   void gramsIs( U32 grams ) { grams_ = grams; }
   Fruit fruit() const { return fruit_; }
   explicit operator bool() const { return grams_ != 0; }
   friend bool operator==( Weight const &, Weight const & ) = default;
   U64 kivHash() const { return grams_ + 1u; }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::stored< &Weight::grams_ >( "grams" ),
                              Kiv::storedReadOnly< &Weight::fruit_ >( "fruit" ),
                              Kiv::stored< &Weight::note_ >( "note" ) );
   }

 private:
   U32 grams_ = 0;
   Fruit fruit_ = Fruit::apple;
   Orlo::String note_;
};

/// A record with collections of both kinds, one of which only others may change.
class Basket {
 public:
   void dealIs( U8 key, Weight const & weight ) { deals_.entryIs( key, weight ); }
   friend bool operator==( Basket const &, Basket const & ) = default;

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::collection< &Basket::tags_ >( "tags" ),
                              Kiv::collection< &Basket::weights_ >( "weights" ),
                              Kiv::collection< &Basket::deals_ >( "deals", false ),
                              Kiv::operation< &Basket::heaviest >( "heaviest" ),
                              Kiv::operation< &Basket::add >( "add", "key, grams" ) );
   }

 private:
   U8 heaviest() const;
   void add( U8 key, U32 grams ) { weights_.entryIs( key, Weight( grams, Fruit::pear ) ); }

   Kiv::DynArray< U16 > tags_;
   Kiv::RbTreeMap< U8, Weight > weights_;
   Kiv::RbTreeMap< U8, Weight > deals_;
};

// Three levels, each with attributes of its own.
class Plant {
 public:
   U8 age() const { return age_; }
   void ageIs( U8 age ) { age_ = age; }
   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::field< &Plant::age, &Plant::ageIs >( "age" ) );
   }
   friend bool operator==( Plant const &, Plant const & ) = default;

 private:
   U8 age_ = 3;
};

class Tree : public Plant {
 public:
   U16 height() const { return height_; }
   void heightIs( U16 height ) { height_ = height; }
   static consteval auto kivAttributes() {
      return Kiv::attributesAfter< Plant >(
         Kiv::field< &Tree::height, &Tree::heightIs >( "height" ) );
   }
   friend bool operator==( Tree const &, Tree const & ) = default;

 private:
   U16 height_ = 400;
};

class AppleTree : public Tree {
 public:
   U32 apples() const { return apples_; }
   static consteval auto kivAttributes() {
      return Kiv::attributesAfter< Tree >( Kiv::computed< &AppleTree::apples >( "apples" ) );
   }
   friend bool operator==( AppleTree const &, AppleTree const & ) = default;

 private:
   U32 apples_ = 77;
};

/// A node, and one that forwards what it has of another object, which need not be there.
class Farm : public Orlo::Node {
 public:
   Kiv::TypeRef typeData() const override;
   U32 trees() const { return trees_; }
   void treesIs( U32 trees ) { trees_ = trees; }
   bool guardedTrees() const { return trees_ < 10; }
   Orlo::Ptr< Farm > neighbour() const { return neighbour_; }
   void neighbourIs( Orlo::Ptr< Orlo::Node > const & farm );
   Orlo::String label() const { return "farm of " + std::to_string( trees_ ); }
   U32 plant( U32 more, Orlo::String const & what );

   static consteval auto kivAttributes() {
      return Kiv::attributes(
         Kiv::field< &Farm::trees, &Farm::treesIs >( "trees" ),
         Kiv::guarded< &Farm::guardedTrees >( Kiv::computed< &Farm::trees >( "smallTrees" ) ),
         Kiv::computed< &Farm::neighbour >( "neighbour" ), Kiv::computed< &Farm::label >( "label" ),
         Kiv::computed< &Farm::guardedTrees >( "isSmall" ),
         Kiv::operation< &Farm::plant >( "plant", "more, what" ),
         Kiv::collection< &Farm::rows_ >( "rows" ) );
   }
   static Orlo::Ptr< Farm > kivCreate() { return Orlo::Ptr< Farm >::make(); }

 private:
   U32 trees_ = 0;
   Orlo::Ptr< Farm > neighbour_;
   Kiv::DynArray< U16 > rows_; // trees in each
};

/// Laid over a farm, as a parser is over a packet. It does not keep the farm.
class FarmReader : public Orlo::Node {
 public:
   explicit FarmReader( Farm * farm ) : farm_( farm ) {}
   Kiv::TypeRef typeData() const override;
   Farm * farm() const { return farm_; }

   static consteval auto kivAttributes() {
      return Kiv::attributes( Kiv::computed< &FarmReader::farm >( "farm" ) );
   }
   using KivForwardedFrom = Farm;
   static constexpr std::string_view kivForwarded = "trees, isSmall, label, neighbour, rows";
   static void * kivTarget( void * reader ) { return static_cast< FarmReader * >( reader )->farm_; }
   static Orlo::Ptr< FarmReader > kivCreate( Orlo::Ptr< Farm > const & farm, U32 ) {
      return Orlo::Ptr< FarmReader >::make( farm.get() );
   }

 private:
   Farm * farm_;
};

} // namespace Orchard
