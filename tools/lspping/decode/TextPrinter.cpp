#include "tools/lspping/decode/TextPrinter.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/TypeRef.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "tools/lspping/decode/Pieces.h"

namespace LspPingTool {

namespace {

constexpr std::string_view bold = "\033[1m";
constexpr std::string_view red = "\033[31m";
constexpr std::string_view plain = "\033[0m";

void appendWithoutNamespace( Orlo::StringBuilder & out, std::string_view name ) {
   constexpr std::string_view prefix = "LspPing::LspPing";
   out.append( name.starts_with( prefix ) ? name.substr( prefix.size() ) : name );
}

// The runs of bits that are set, as first and last member.
void appendSet( Orlo::StringBuilder & out, Multipath const & set ) {
   std::string_view separator = " ";
   std::size_t const count = set.bitCount();
   for( std::size_t bit = 0; bit < count; ++bit ) {
      if( !set.contains( bit ) )
         continue;
      std::size_t const first = bit;
      while( bit + 1 < count && set.contains( bit + 1 ) )
         ++bit;
      out.append( separator );
      separator = ", ";
      set.appendMember( out, first );
      if( bit != first ) {
         out.append( '-' );
         set.appendMember( out, bit );
      }
   }
}

} // namespace

void TextPrinter::print( EchoPacket const & packet, Message const & message ) {
   messageLine( packet, message );
   for( Element const & element : message.elements )
      elementLine( message, element );
   if( hasRecords_ )
      recordLines( message );
   for( Problem const & problem : packet.problems )
      problemLine( problem );
   for( Problem const & problem : message.problems ) {
      problemLine( problem );
      if( problem.strayBytes != 0 )
         bytesLine( 2, message.bytesOf( problem ) );
   }
}

void TextPrinter::messageLine( EchoPacket const & packet, Message const & message ) {
   colour( bold );
   out_.appendDecimal( packet.number );
   out_.append( ' ' );
   if( packet.time ) {
      appendTime( out_, *packet.time );
      out_.append( ' ' );
   }
   if( !packet.source.empty() ) {
      endpoint( packet.source, packet.sourcePort );
      out_.append( " > " );
      endpoint( packet.destination, packet.destinationPort );
      out_.append( ' ' );
   }
   if( !packet.labels.empty() ) {
      std::string_view separator = "[";
      for( LabelStackEntry const & entry : packet.labels ) {
         out_.append( separator );
         separator = ", ";
         out_.appendDecimal( entry.label );
         out_.append( " tc " );
         out_.appendDecimal( entry.trafficClass );
         out_.append( entry.bottomOfStack ? " s 1 ttl " : " s 0 ttl " );
         out_.appendDecimal( entry.timeToLive );
      }
      out_.append( "] " );
   }
   if( packet.channelType ) {
      out_.append( "channel 0x" );
      out_.appendHex( static_cast< U16 >( *packet.channelType ), false );
      out_.append( ' ' );
   }
   if( message.hasHeader ) {
      // The walk found the header's bytes, and the view has no alignment.
      out_.append(
         reinterpret_cast< LspPing::LspPingHdr const * >( message.bytes.data() )->stringValue() );
   } else {
      out_.append( "no LspPingHdr( Bytes: " );
      appendBytes( out_, message.bytes );
      out_.append( " )" );
   }
   colour( plain );
   out_.append( '\n' );
}

void TextPrinter::endpoint( std::span< U8 const > address, std::optional< U16 > port ) {
   bool const brackets = address.size() == 16 && port;
   if( brackets )
      out_.append( '[' );
   appendAddress( out_, address );
   if( brackets )
      out_.append( ']' );
   if( port ) {
      out_.append( ':' );
      out_.appendDecimal( *port );
   }
}

void TextPrinter::elementLine( Message const & message, Element const & element ) {
   indent( element.depth + 1u );
   if( element.isViewed ) {
      std::size_t const before = out_.size();
      appendViewText( out_, message, element );
      // A few views have no words for an invalid element.
      if( out_.size() == before ) {
         out_.append( "Invalid " );
         appendWithoutNamespace( out_, Kiv::TypeRef( element.row->view->id ).name() );
      }
      out_.append( '\n' );
      if( element.row->isNonIp )
         nonIpLine( message, element );
      if( showsBytes( element ) )
         bytesLine( element.depth + 2u, message.bytesOf( element ) );
   } else {
      appendCodeName( out_, element.context, element.code );
      if( showsBytes( element ) ) {
         out_.append( "( Code: " );
         out_.appendDecimal( element.code );
         out_.append( ", Length: " );
         out_.appendDecimal( element.length );
         out_.append( ", Bytes: " );
         appendBytes( out_, message.bytesOf( element ) );
         out_.append( " )" );
      }
      out_.append( '\n' );
   }
   if( element.hasMultipath )
      multipathLine( message, element );
   if( element.hasLabels )
      labelLines( message, element );
}

void TextPrinter::bytesLine( U32 level, std::span< U8 const > bytes ) {
   indent( level );
   out_.append( "Bytes( " );
   appendBytes( out_, bytes );
   out_.append( " )\n" );
}

void TextPrinter::nonIpLine( Message const & message, Element const & element ) {
   std::string_view separator = "NonIp( ";
   indent( element.depth + 2u );
   for( NamedNumber const & field : nonIpFields( message, element ) ) {
      out_.append( separator );
      separator = ", ";
      out_.append( field.name );
      out_.append( ": " );
      out_.appendDecimal( field.number );
   }
   out_.append( " )\n" );
}

void TextPrinter::multipathLine( Message const & message, Element const & element ) {
   Multipath const multipath( message, element );
   indent( element.depth + 2u );
   out_.append( "Multipath( " );
   appendMultipathType( out_, multipath.type() );
   out_.append( ":" );
   if( multipath.isSet() ) {
      appendSet( out_, multipath );
   } else if( multipath.type() == Multipath::addresses || multipath.type() == Multipath::ranges ) {
      bool const isRanges = multipath.type() == Multipath::ranges;
      for( std::size_t i = 0; i < multipath.addressCount(); ++i ) {
         out_.append( isRanges && i % 2 == 1 ? "-" : i == 0 ? " " : ", " );
         appendAddress( out_, multipath.address( i ) );
      }
   } else {
      out_.append( ' ' );
      appendBytes( out_, multipath.bytes() );
   }
   out_.append( " )\n" );
}

void TextPrinter::labelLines( Message const & message, Element const & element ) {
   for( U32 i = 0; i < element.labelCount; ++i ) {
      Label const label =
         labelAt( message.bytes.data() + element.labelsOffset + std::size_t{ 4 } * i );
      indent( element.depth + 2u );
      out_.append( "Label( " );
      out_.appendDecimal( label.label );
      out_.append( ", TC: " );
      out_.appendDecimal( label.trafficClass );
      out_.append( label.bottomOfStack ? ", S: 1" : ", S: 0" );
      if( hasProtocol( element ) ) {
         out_.append( ", Protocol: " );
         appendProtocol( out_, label.last );
      } else {
         out_.append( ", TTL: " );
         out_.appendDecimal( label.last );
      }
      out_.append( " )\n" );
   }
}

// Each in its generic text, which begins with its type.
void TextPrinter::recordLines( Message const & message ) {
   auto const line = [this]< class Record >( std::optional< Record > const & record ) {
      if( !record )
         return;
      indent( 1 );
      KivOrlo::appendValue( out_, Kiv::typeOf< Record >(), &*record );
      out_.append( '\n' );
   };
   MessageRecords const records = recordsOf( message );
   line( records.fecStack );
   line( records.downstreamMappings );
   line( records.intfAndLabelStack );
   line( records.pad );
   for( Problem const & leftOut : records.leftOut ) {
      indent( 1 );
      out_.append( "not in the records: offset " );
      out_.appendDecimal( leftOut.offset );
      out_.append( ": " );
      out_.append( leftOut.text );
      out_.append( '\n' );
   }
}

void TextPrinter::problemLine( Problem const & problem ) {
   indent( 1 );
   colour( red );
   out_.append( "! offset " );
   out_.appendDecimal( problem.offset );
   out_.append( ": " );
   out_.append( problem.text );
   colour( plain );
   out_.append( '\n' );
}

void TextPrinter::indent( U32 level ) {
   for( ; level > 0; --level )
      out_.append( "   " );
}

void TextPrinter::colour( std::string_view sequence ) {
   if( hasColour_ )
      out_.append( sequence );
}

} // namespace LspPingTool
