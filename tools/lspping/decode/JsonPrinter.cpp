#include "tools/lspping/decode/JsonPrinter.h"

#include "MplsUtils/LspPing/message/LspPingMessageRecords.h"
#include "MplsUtils/LspPing/message/LspPingWords.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"
#include "tools/lspping/decode/Pieces.h"

namespace LspPingTool {

void JsonPrinter::print( EchoPacket const & packet, LspPing::LspPingMessage const & message ) {
   json_.Reset( out_ );
   json_.StartObject();
   packetMembers( packet );
   writeKey( json_, "message" );
   header( message );
   writeKey( json_, "tlvs" );
   elements( message.elements() );
   writeKey( json_, "problems" );
   problems( packet, message );
   if( hasRecords_ ) {
      writeKey( json_, "records" );
      records( message );
   }
   json_.EndObject();
   out_.Put( '\n' );
}

void JsonPrinter::packetMembers( EchoPacket const & packet ) {
   member( "packet", packet.number );
   writeKey( json_, "time" );
   if( packet.time ) {
      text_.clear();
      LspPing::appendUtc( text_, packet.time->seconds, packet.time->nanoseconds );
      writeString( json_, text_.view() );
   } else {
      json_.Null();
   }
   addressMember( "src", packet.source );
   addressMember( "dst", packet.destination );
   auto const port = [this]( std::string_view key, std::optional< U16 > number ) {
      writeKey( json_, key );
      if( number )
         json_.Uint( *number );
      else
         json_.Null();
   };
   port( "srcPort", packet.sourcePort );
   port( "dstPort", packet.destinationPort );
   writeKey( json_, "labels" );
   json_.StartArray();
   for( Velnet::MplsLabelEntry const entry : packet.labels ) {
      startLabel( entry );
      member( "ttl", entry.ttl() );
      json_.EndObject();
   }
   json_.EndArray();
}

void JsonPrinter::header( LspPing::LspPingMessage const & message ) {
   json_.StartObject();
   if( LspPing::LspPingHdr const * header = message.header() ) {
      Kiv::TypeRef const type = Kiv::typeOf< LspPing::LspPingHdr >();
      member( "type", type.name() );
      member( "offset", 0 );
      member( "length", sizeof( *header ) );
      writeKey( json_, "valid" );
      json_.Bool( message.isHeaderValid() );
      text_.clear();
      message.appendHeaderText( text_ );
      member( "text", text_.view() );
      writeKey( json_, "attributes" );
      if( header->valid() )
         writeAttributes( json_, type, header,
                          { Kiv::attributeNamed( type, "stringValue" ).attribute, text_.view() } );
      else
         writeAttributes( json_, type, header );
   } else {
      member( "offset", 0 );
      member( "length", message.bytes().size() );
      bytesMember( "hex", message.bytes() );
   }
   json_.EndObject();
}

void JsonPrinter::elements( LspPing::LspPingElementRange elements ) {
   json_.StartArray();
   for( LspPing::LspPingElementRef const one : elements )
      element( one );
   json_.EndArray();
}

void JsonPrinter::element( LspPing::LspPingElementRef element ) {
   json_.StartObject();
   member( "code", element.code() );
   text_.clear();
   appendCodeName( text_, element );
   member( "name", text_.view() );
   member( "offset", element.offset() );
   member( "length", element.length() );
   member( "totalLength", element.totalLength() );
   if( Kiv::TypeRef const type = element.type() ) {
      member( "type", type.name() );
      writeKey( json_, "valid" );
      json_.Bool( element.isValid() );
      ElementObject const object( element );
      text_.clear();
      object.appendText( text_ );
      member( "text", text_.view() );
      writeKey( json_, "attributes" );
      writeAttributes( json_, type, object.get(),
                       { Kiv::attributeNamed( type, "stringValue" ).attribute, text_.view() } );
   }
   if( std::string_view const reading = element.reading(); !reading.empty() )
      member( "reading", reading );
   if( showsBytes( element ) )
      bytesMember( "hex", element.bytes() );
   if( element.hasMultipath() )
      multipath( element );
   if( element.hasLabels() )
      labels( element );
   if( element.isContainer() ) {
      writeKey( json_, "subTlvs" );
      elements( element.elements() );
   }
   json_.EndObject();
}

void JsonPrinter::startLabel( Velnet::MplsLabelEntry label ) {
   json_.StartObject();
   member( "label", label.label() );
   member( "tc", label.trafficClass() );
   writeKey( json_, "bos" );
   json_.Bool( label.bottomOfStack() );
}

void JsonPrinter::labels( LspPing::LspPingElementRef element ) {
   LspPing::LspPingLabels const labels = element.labels();
   writeKey( json_, "labels" );
   json_.StartArray();
   for( std::size_t i = 0; i < labels.size(); ++i ) {
      Velnet::MplsLabelEntry const label = labels[i];
      startLabel( label );
      if( labels.hasProtocol() ) {
         text_.clear();
         appendProtocol( text_, label.ttl() );
         member( "protocol", text_.view() );
      } else {
         member( "ttl", label.ttl() );
      }
      json_.EndObject();
   }
   json_.EndArray();
}

void JsonPrinter::multipath( LspPing::LspPingElementRef element ) {
   LspPing::LspPingMultipath const multipath = element.multipath();
   writeKey( json_, "multipath" );
   if( !multipath.isIpAndLabelSet() ) {
      multipathInformation( multipath );
      return;
   }
   json_.StartObject();
   text_.clear();
   appendMultipathType( text_, multipath.type() );
   member( "type", text_.view() );
   writeKey( json_, "ip" );
   multipathInformation( multipath.ip() );
   writeKey( json_, "labels" );
   multipathInformation( multipath.labels() );
   writeKey( json_, "associated" );
   json_.StartArray();
   LspPing::LspPingAssociatedLabels const associated = multipath.associatedLabels();
   for( std::size_t i = 0; i < associated.size(); ++i )
      json_.Uint( associated[i] );
   json_.EndArray();
   json_.EndObject();
}

void JsonPrinter::multipathInformation( LspPing::LspPingMultipath const & multipath ) {
   json_.StartObject();
   text_.clear();
   appendMultipathType( text_, multipath.type() );
   member( "type", text_.view() );
   if( multipath.isSet() ) {
      if( multipath.isLabels() )
         member( "base", multipath.baseLabel() );
      else
         addressMember( "base", multipath.baseAddress() );
      bytesMember( "mask", multipath.mask() );
   } else if( multipath.type() == LspPing::LspPingMultipathType::ipMultipath ) {
      writeKey( json_, "addresses" );
      json_.StartArray();
      for( LspPing::LspPingMultipath::Item const item : multipath ) {
         text_.clear();
         appendText( text_, item.first );
         writeString( json_, text_.view() );
      }
      json_.EndArray();
   } else if( multipath.isList() ) {
      writeKey( json_, "ranges" );
      json_.StartArray();
      for( LspPing::LspPingMultipath::Item const item : multipath ) {
         json_.StartObject();
         addressMember( "first", item.first );
         addressMember( "last", item.last );
         json_.EndObject();
      }
      json_.EndArray();
   } else {
      bytesMember( "hex", multipath.bytes() );
   }
   json_.EndObject();
}

void JsonPrinter::records( LspPing::LspPingMessage const & message ) {
   auto const object = [this]< class Record >( std::string_view key,
                                               std::optional< Record > const & record ) {
      if( !record )
         return;
      writeKey( json_, key );
      writeAttributes( json_, Kiv::typeOf< Record >(), &*record );
   };
   LspPing::LspPingMessageRecords const records( message );
   json_.StartObject();
   object( "fecStack", records.fecStack );
   object( "downstreamMappings", records.downstreamMappings );
   object( "intfAndLabelStack", records.intfAndLabelStack );
   object( "pad", records.pad );
   if( !records.leftOut.empty() ) {
      writeKey( json_, "leftOut" );
      json_.StartArray();
      for( LspPing::LspPingLeftOut const & leftOut : records.leftOut ) {
         text_.clear();
         appendCodeName( text_, message.element( leftOut.element ) );
         text_.append( ": " );
         text_.append( leftOut.what );
         json_.StartObject();
         member( "offset", leftOut.offset );
         member( "what", text_.view() );
         json_.EndObject();
      }
      json_.EndArray();
   }
   json_.EndObject();
}

void JsonPrinter::problems( EchoPacket const & packet, LspPing::LspPingMessage const & message ) {
   json_.StartArray();
   for( Problem const & problem : packet.problems ) {
      json_.StartObject();
      member( "offset", problem.offset );
      member( "problem", problem.text );
      json_.EndObject();
   }
   for( LspPing::LspPingProblem const & problem : message.problems() ) {
      text_.clear();
      message.appendText( text_, problem );
      json_.StartObject();
      member( "offset", problem.offset );
      member( "problem", text_.view() );
      if( problem.strayBytes != 0 )
         bytesMember( "hex", message.strayBytes( problem ) );
      json_.EndObject();
   }
   json_.EndArray();
}

void JsonPrinter::member( std::string_view key, U64 number ) {
   writeKey( json_, key );
   json_.Uint64( number );
}

void JsonPrinter::member( std::string_view key, std::string_view text ) {
   writeKey( json_, key );
   writeString( json_, text );
}

void JsonPrinter::bytesMember( std::string_view key, std::span< U8 const > bytes ) {
   text_.clear();
   text_.appendHexBytes( bytes );
   member( key, text_.view() );
}

void JsonPrinter::addressMember( std::string_view key, Velnet::IpGenAddr const & address ) {
   text_.clear();
   appendText( text_, address );
   member( key, text_.view() );
}

void JsonPrinter::addressMember( std::string_view key, std::span< U8 const > address ) {
   writeKey( json_, key );
   if( address.empty() ) {
      json_.Null();
      return;
   }
   text_.clear();
   appendAddress( text_, address );
   writeString( json_, text_.view() );
}

} // namespace LspPingTool
