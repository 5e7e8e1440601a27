#include "tools/lspping/decode/TextPrinter.h"

#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"
#include "MplsUtils/LspPing/message/LspPingWords.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/platform/base/TypeRef.h"
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

} // namespace

void TextPrinter::print( EchoPacket const & packet, LspPing::LspPingMessage const & message ) {
   messageLine( packet, message );
   for( U32 i = 0; i < message.elementCount(); ++i )
      elementLine( message.element( i ) );
   if( hasRecords_ )
      recordLines( message );
   for( Problem const & problem : packet.problems )
      problemLine( problem.offset, problem.text );
   for( LspPing::LspPingProblem const & problem : message.problems() ) {
      Orlo::StringBuilder text;
      message.appendText( text, problem );
      problemLine( problem.offset, text.view() );
      if( problem.strayBytes != 0 )
         bytesLine( 2, message.strayBytes( problem ) );
   }
}

void TextPrinter::messageLine( EchoPacket const & packet,
                               LspPing::LspPingMessage const & message ) {
   colour( bold );
   out_.appendDecimal( packet.number );
   out_.append( ' ' );
   if( packet.time ) {
      LspPing::appendUtc( out_, packet.time->seconds, packet.time->nanoseconds );
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
      for( Velnet::MplsLabelEntry const entry : packet.labels ) {
         out_.append( separator );
         separator = ", ";
         out_.appendDecimal( entry.label() );
         out_.append( " tc " );
         out_.appendDecimal( entry.trafficClass() );
         out_.append( entry.bottomOfStack() ? " s 1 ttl " : " s 0 ttl " );
         out_.appendDecimal( entry.ttl() );
      }
      out_.append( "] " );
   }
   if( packet.channelType ) {
      out_.append( "channel 0x" );
      out_.appendHex( static_cast< U16 >( *packet.channelType ), false );
      out_.append( ' ' );
   }
   if( message.header() != nullptr ) {
      message.appendHeaderText( out_ );
   } else {
      out_.append( "no LspPingHdr( Bytes: " );
      out_.appendHexBytes( message.bytes() );
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

void TextPrinter::elementLine( LspPing::LspPingElementRef element ) {
   U32 const depth = element.depth();
   indent( depth + 1 );
   if( element.isDescribed() ) {
      std::size_t const before = out_.size();
      if( !element.appendText( out_ ) )
         ElementObject( element ).appendText( out_ );
      // A few views have no words for an invalid element.
      if( out_.size() == before ) {
         out_.append( "Invalid " );
         appendWithoutNamespace( out_, element.type().name() );
      }
      out_.append( '\n' );
      if( showsBytes( element ) )
         bytesLine( depth + 2, element.bytes() );
   } else {
      appendCodeName( out_, element );
      if( showsBytes( element ) ) {
         out_.append( "( Code: " );
         out_.appendDecimal( element.code() );
         out_.append( ", Length: " );
         out_.appendDecimal( element.length() );
         out_.append( ", Bytes: " );
         out_.appendHexBytes( element.bytes() );
         out_.append( " )" );
      }
      out_.append( '\n' );
   }
   if( std::string_view const reading = element.reading(); !reading.empty() ) {
      indent( depth + 2 );
      out_.append( "Reading( " );
      out_.append( reading );
      out_.append( " )\n" );
   }
   if( element.hasMultipath() )
      multipathLine( element );
   if( element.hasLabels() )
      labelLines( element );
}

void TextPrinter::bytesLine( U32 level, std::span< U8 const > bytes ) {
   indent( level );
   out_.append( "Bytes( " );
   out_.appendHexBytes( bytes );
   out_.append( " )\n" );
}

void TextPrinter::multipathLine( LspPing::LspPingElementRef element ) {
   LspPing::LspPingMultipath const multipath = element.multipath();
   indent( element.depth() + 2 );
   out_.append( "Multipath( " );
   if( multipath.isIpAndLabelSet() )
      multipathSections( multipath );
   else
      multipathInformation( multipath );
   out_.append( " )\n" );
}

void TextPrinter::multipathSections( LspPing::LspPingMultipath const & multipath ) {
   appendMultipathType( out_, multipath.type() );
   out_.append( ": IP( " );
   multipathInformation( multipath.ip() );
   out_.append( " ), labels( " );
   multipathInformation( multipath.labels() );
   out_.append( " ), associated(" );
   LspPing::LspPingAssociatedLabels const associated = multipath.associatedLabels();
   for( std::size_t i = 0; i < associated.size(); ++i ) {
      out_.append( i == 0 ? " " : ", " );
      out_.appendDecimal( associated[i] );
   }
   out_.append( " )" );
}

// The type, and what it says of the bytes behind it, if any.
void TextPrinter::multipathInformation( LspPing::LspPingMultipath const & multipath ) {
   appendMultipathType( out_, multipath.type() );
   if( multipath.bytes().empty() )
      return;
   out_.append( ":" );
   if( multipath.isList() ) {
      bool const isRanges = multipath.type() == LspPing::LspPingMultipathType::ipRangeMultipath;
      for( std::size_t i = 0; i < multipath.addressCount(); ++i ) {
         out_.append( isRanges && i % 2 == 1 ? "-" : i == 0 ? " " : ", " );
         appendText( out_, multipath.address( i ) );
      }
   } else if( multipath.isSet() ) {
      std::string_view separator = " ";
      for( LspPing::LspPingMultipath::Item const item : multipath ) {
         out_.append( separator );
         separator = ", ";
         if( multipath.isLabels() )
            out_.appendDecimal( item.firstLabel );
         else
            appendText( out_, item.first );
         if( !item.isRange() )
            continue;
         out_.append( '-' );
         if( multipath.isLabels() )
            out_.appendDecimal( item.lastLabel );
         else
            appendText( out_, item.last );
      }
   } else {
      out_.append( ' ' );
      out_.appendHexBytes( multipath.bytes() );
   }
}

void TextPrinter::labelLines( LspPing::LspPingElementRef element ) {
   LspPing::LspPingLabels const labels = element.labels();
   for( std::size_t i = 0; i < labels.size(); ++i ) {
      Velnet::MplsLabelEntry const label = labels[i];
      indent( element.depth() + 2 );
      out_.append( "Label( " );
      out_.appendDecimal( label.label() );
      out_.append( ", TC: " );
      out_.appendDecimal( label.trafficClass() );
      out_.append( label.bottomOfStack() ? ", S: 1" : ", S: 0" );
      if( labels.hasProtocol() ) {
         out_.append( ", Protocol: " );
         appendProtocol( out_, label.ttl() );
      } else {
         out_.append( ", TTL: " );
         out_.appendDecimal( label.ttl() );
      }
      out_.append( " )\n" );
   }
}

// Each in its generic text, which begins with its type.
void TextPrinter::recordLines( LspPing::LspPingMessage const & message ) {
   auto const line = [this]< class Record >( std::optional< Record > const & record ) {
      if( !record )
         return;
      indent( 1 );
      KivOrlo::appendValue( out_, Kiv::typeOf< Record >(), &*record );
      out_.append( '\n' );
   };
   LspPing::LspPingMessageRecords const records( message );
   line( records.fecStack );
   line( records.downstreamMappings );
   line( records.intfAndLabelStack );
   line( records.pad );
   for( LspPing::LspPingLeftOut const & leftOut : records.leftOut ) {
      indent( 1 );
      out_.append( "not in the records: offset " );
      out_.appendDecimal( leftOut.offset );
      out_.append( ": " );
      appendCodeName( out_, message.element( leftOut.element ) );
      out_.append( ": " );
      out_.append( leftOut.what );
      out_.append( '\n' );
   }
}

void TextPrinter::problemLine( std::size_t offset, std::string_view text ) {
   indent( 1 );
   colour( red );
   out_.append( "! offset " );
   out_.appendDecimal( offset );
   out_.append( ": " );
   out_.append( text );
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
