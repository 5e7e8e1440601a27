#pragma once

// One page for the one macro that declares a parser class. It is a macro because the class, its
// factory and its creator carry the view's name in theirs; what they do is LspPingParser's.

#include "MplsUtils/LspPing/framing/LspPingParser.h"

/// Declares the parser of view LspPing<X> and its factory. The list names the attributes that are
/// forwarded to the view, in order; the view itself need not be known here.
#define LSPPING_PARSER( X, ... )                                                                   \
   class LSPPING_EXPORT LspPing##X##Parser : public LspPingParser,                                 \
                                             public VelSlab::Allocated< LspPing##X##Parser > {     \
    public:                                                                                        \
      LspPing##X##Parser( Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset );                      \
      /** A new parser, in the order of arguments that the type system knows. */                   \
      static Orlo::Ptr< LspPing##X##Parser >                                                       \
         LspPing##X##ParserIs( Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset );                 \
                                                                                                   \
      /** The view over the packet's bytes, which stay the packet's. */                            \
      LspPing##X * header() const noexcept { return static_cast< LspPing##X * >( place() ); }      \
      /** Finds the view's place again, for instance after the packet's data start has moved. */   \
      void handleHeader() noexcept;                                                                \
                                                                                                   \
      Kiv::TypeRef typeData() const override;                                                      \
                                                                                                   \
      static consteval auto kivAttributes() {                                                      \
         using Self = LspPing##X##Parser;                                                          \
         return Kiv::attributes( Kiv::computed< &LspPingParser::pkt >( "pkt" ),                    \
                                 Kiv::computed< &LspPingParser::offset >( "offset" ),              \
                                 Kiv::computed< &Self::header >( "header" ),                       \
                                 Kiv::operation< &Self::handleHeader >( "handleHeader" ) );        \
      }                                                                                            \
      using KivForwardedFrom = LspPing##X;                                                         \
      static constexpr std::string_view kivForwarded = #__VA_ARGS__;                               \
      static void * kivTarget( void * parser ) {                                                   \
         return static_cast< LspPing##X##Parser * >( parser )->place();                            \
      }                                                                                            \
      static Orlo::Ptr< LspPing##X##Parser > kivCreate( Orlo::Ptr< Velnet::Pkt > const & pkt,      \
                                                        U32 offset ) {                             \
         return LspPing##X##ParserIs( pkt, offset );                                               \
      }                                                                                            \
      static Kiv::AllocationTracker memAllocationTracker_;                                         \
   };                                                                                              \
   /** A new parser over the packet's bytes from `offset` on; the only reference to it. */         \
   LSPPING_EXPORT Orlo::Ptr< LspPing##X##Parser > lspPing##X##ParserFactory(                       \
      Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset )

/// Defines all of it but the constructor and handleHeader.
#define LSPPING_PARSER_SHARED_DEFINITIONS( X )                                                     \
   constinit Kiv::AllocationTracker LspPing##X##Parser::memAllocationTracker_ =                    \
      Kiv::trackerOf< LspPing##X##Parser >();                                                      \
   Orlo::Ptr< LspPing##X##Parser > LspPing##X##Parser::LspPing##X##ParserIs(                       \
      Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset ) {                                         \
      return lspPing##X##ParserFactory( pkt, offset );                                             \
   }                                                                                               \
   Kiv::TypeRef LspPing##X##Parser::typeData() const {                                             \
      return Kiv::typeOf< LspPing##X##Parser >();                                                  \
   }                                                                                               \
   Orlo::Ptr< LspPing##X##Parser > lspPing##X##ParserFactory(                                      \
      Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset ) {                                         \
      return Orlo::Ptr< LspPing##X##Parser >::make( pkt, offset );                                 \
   }                                                                                               \
   static_assert( sizeof( LspPing##X##Parser ) == sizeof( LspPingParser ) )

/// Defines a parser that lays its view over the packet.
#define LSPPING_PARSER_DEFINITIONS( X )                                                            \
   LSPPING_PARSER_SHARED_DEFINITIONS( X );                                                         \
   LspPing##X##Parser::LspPing##X##Parser( Orlo::Ptr< Velnet::Pkt > const & pkt, U32 offset )      \
      : LspPingParser( pkt, offset ) {}                                                            \
   void LspPing##X##Parser::handleHeader() noexcept {                                              \
      handlePlace();                                                                               \
   }                                                                                               \
   static_assert( true )
