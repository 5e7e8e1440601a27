#pragma once

#include "MplsUtils/LspPing/LspPingHdr.h"
#include "MplsUtils/LspPing/message/LspPingMessageWriter.h"
#include "tests/WireBytes.h"
#include "tests/message/MessageBytes.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

// Elements as the reader and the writer see them.
namespace ExtTesting {

using LspPing::LspPingMessageWriter;

/// A message with what `write( writer )` writes behind its header, without the header, or the
/// error's name.
template < class Write >
std::string written( Write write ) {
   Bytes memory;
   LspPingMessageWriter writer( memory );
   writer.header( []( LspPing::LspPingHdr & header ) { header.messageTypeIs( 1 ); } );
   write( writer );
   if( writer.error() )
      return std::string( lspPingWriteErrorName( writer.error().code ) );
   return hexOf( std::span( memory ).subspan( sizeof( LspPing::LspPingHdr ) ) );
}

/// A TLV of that class, as `fill( view )` fills it.
template < class View, class Fill >
std::string writtenTlv( Fill fill ) {
   return written( [&]( LspPingMessageWriter & writer ) { writer.add< View >( fill ); } );
}

/// What `write( writer )` writes into a stack of FECs, without the stack around it.
template < class Write >
std::string writtenFecs( Write write ) {
   std::string const hex = written( [&]( LspPingMessageWriter & writer ) {
      auto const stack = writer.open( LspPing::LspPingTlvType::TargetFecStack );
      write( writer );
   } );
   return hex.starts_with( "00 01 " ) ? hex.substr( 12 ) : hex;
}

/// A FEC of that class, without the stack around it.
template < class View, class Fill >
std::string writtenFec( Fill fill ) {
   return writtenFecs( [&]( LspPingMessageWriter & writer ) { writer.add< View >( fill ); } );
}

/// What the reader says of the elements at a depth: a line of text and perhaps the reading of each.
/// Only the problems, where there are any.
inline std::string readAt( LspPing::LspPingMessage const & message, U32 depth ) {
   Orlo::StringBuilder lines;
   auto const next = [&] {
      if( lines.size() > 0 )
         lines.append( '\n' );
   };
   for( LspPing::LspPingProblem const & problem : message.problems() ) {
      next();
      message.appendText( lines, problem );
   }
   if( lines.size() > 0 )
      return lines.string();
   for( U32 i = 0; i < message.elementCount(); ++i ) {
      LspPing::LspPingElementRef const element = message.element( i );
      if( element.depth() != depth )
         continue;
      next();
      if( !element.appendText( lines ) )
         lines.append( element.name() );
      if( !element.reading().empty() ) {
         next();
         lines.append( element.reading() );
      }
   }
   return lines.string();
}

/// A message with these TLVs behind its header.
inline Bytes messageOfTlvs( std::string_view hex ) {
   Bytes bytes( sizeof( LspPing::LspPingHdr ) );
   bytes[1] = bytes[4] = 1;
   Bytes const tlvs = bytesOf( hex );
   bytes.insert( bytes.end(), tlvs.begin(), tlvs.end() );
   return bytes;
}

/// A message with a stack of these FECs.
inline Bytes messageOfFecs( std::string_view hex ) {
   std::size_t const size = bytesOf( hex ).size();
   Bytes const header{ 0, 1, static_cast< U8 >( size >> 8 ), static_cast< U8 >( size ) };
   return messageOfTlvs( hexOf( header ) + " " + std::string( hex ) );
}

inline std::string readTlvs( std::string_view hex, U32 depth = 0 ) {
   Bytes const bytes = messageOfTlvs( hex );
   LspPing::LspPingMessageReader reader;
   return readAt( reader.read( bytes ), depth );
}

inline std::string readFec( std::string_view hex ) {
   Bytes const bytes = messageOfFecs( hex );
   LspPing::LspPingMessageReader reader;
   return readAt( reader.read( bytes ), 1 );
}

} // namespace ExtTesting
