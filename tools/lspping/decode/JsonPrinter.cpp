#include "tools/lspping/decode/JsonPrinter.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/types/LspPingMappingTypes.h"
#include "tools/lspping/decode/Pieces.h"

namespace LspPingTool {

namespace {

bool hasSubTlvs( Element const & element ) noexcept {
   if( element.row == nullptr )
      return false;
   switch( element.row->body ) {
   case Body::tlvs:
   case Body::fecs:
   case Body::ddmapSubTlvs:
   case Body::stackChangeFec:
   case Body::responderTlvs:
   case Body::vendorTlvs:
   case Body::opaqueValue:
      return true;
   default:
      return false;
   }
}

} // namespace

void JsonPrinter::print( EchoPacket const & packet, Message const & message ) {
   json_.Reset( out_ );
   json_.StartObject();
   packetMembers( packet );
   writeKey( json_, "message" );
   header( message );
   writeKey( json_, "tlvs" );
   elements( message, 0, message.elements.size() );
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
      appendTime( text_, *packet.time );
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
   for( LabelStackEntry const & entry : packet.labels ) {
      json_.StartObject();
      member( "label", entry.label );
      member( "tc", entry.trafficClass );
      writeKey( json_, "bos" );
      json_.Bool( entry.bottomOfStack );
      member( "ttl", entry.timeToLive );
      json_.EndObject();
   }
   json_.EndArray();
}

void JsonPrinter::header( Message const & message ) {
   json_.StartObject();
   if( message.hasHeader ) {
      // The walk found the header's bytes, and the view has no alignment.
      auto const & view = *reinterpret_cast< LspPing::LspPingHdr const * >( message.bytes.data() );
      Kiv::TypeRef const type = Kiv::typeOf< LspPing::LspPingHdr >();
      member( "type", type.name() );
      member( "offset", 0 );
      member( "length", Message::headerLength );
      writeKey( json_, "valid" );
      json_.Bool( message.isHeaderValid );
      member( "text", view.stringValue() );
      writeKey( json_, "attributes" );
      writeAttributes( json_, type, &view );
   } else {
      member( "offset", 0 );
      member( "length", message.bytes.size() );
      bytesMember( "hex", message.bytes );
   }
   json_.EndObject();
}

void JsonPrinter::elements( Message const & message, std::size_t begin, std::size_t end ) {
   json_.StartArray();
   for( std::size_t i = begin; i < end; i = message.elements[i].after )
      element( message, i );
   json_.EndArray();
}

void JsonPrinter::element( Message const & message, std::size_t index ) {
   Element const & element = message.elements[index];
   json_.StartObject();
   member( "code", element.code );
   text_.clear();
   appendCodeName( text_, element.context, element.code );
   member( "name", text_.view() );
   member( "offset", element.offset );
   member( "length", element.length );
   member( "totalLength", element.totalLength );
   if( element.isViewed ) {
      View const & view = *element.row->view;
      Kiv::TypeRef const type( view.id );
      member( "type", type.name() );
      writeKey( json_, "valid" );
      json_.Bool( element.isValid );
      text_.clear();
      appendViewText( text_, message, element );
      member( "text", text_.view() );
      writeKey( json_, "attributes" );
      struct Target {
         JsonWriter & json;
         Kiv::TypeRef type;
      } target{ json_, type };
      view.visit(
         message.at( element ), element.length,
         []( void const * object, void * context ) {
            Target const & to = *static_cast< Target * >( context );
            writeAttributes( to.json, to.type, object );
         },
         &target );
   }
   if( element.isViewed && element.row->isNonIp ) {
      writeKey( json_, "nonIp" );
      json_.StartObject();
      for( NamedNumber const & field : nonIpFields( message, element ) )
         member( field.name, field.number );
      json_.EndObject();
   }
   if( showsBytes( element ) )
      bytesMember( "hex", message.bytesOf( element ) );
   if( element.hasMultipath )
      multipath( message, element );
   if( element.hasLabels )
      labels( message, element );
   if( hasSubTlvs( element ) ) {
      writeKey( json_, "subTlvs" );
      elements( message, index + 1, element.after );
   }
   json_.EndObject();
}

void JsonPrinter::labels( Message const & message, Element const & element ) {
   writeKey( json_, "labels" );
   json_.StartArray();
   for( U32 i = 0; i < element.labelCount; ++i ) {
      Label const label =
         labelAt( message.bytes.data() + element.labelsOffset + std::size_t{ 4 } * i );
      json_.StartObject();
      member( "label", label.label );
      member( "tc", label.trafficClass );
      writeKey( json_, "bos" );
      json_.Bool( label.bottomOfStack );
      if( hasProtocol( element ) ) {
         text_.clear();
         appendProtocol( text_, label.last );
         member( "protocol", text_.view() );
      } else {
         member( "ttl", label.last );
      }
      json_.EndObject();
   }
   json_.EndArray();
}

void JsonPrinter::multipath( Message const & message, Element const & element ) {
   Multipath const multipath( message, element );
   writeKey( json_, "multipath" );
   json_.StartObject();
   text_.clear();
   appendMultipathType( text_, multipath.type() );
   member( "type", text_.view() );
   if( multipath.isSet() ) {
      if( multipath.type() == Multipath::maskedLabels )
         member( "base", multipath.baseLabel() );
      else
         addressMember( "base", multipath.base() );
      bytesMember( "mask", multipath.mask() );
   } else if( multipath.type() == Multipath::addresses ) {
      writeKey( json_, "addresses" );
      json_.StartArray();
      for( std::size_t i = 0; i < multipath.addressCount(); ++i ) {
         text_.clear();
         appendAddress( text_, multipath.address( i ) );
         writeString( json_, text_.view() );
      }
      json_.EndArray();
   } else if( multipath.type() == Multipath::ranges ) {
      writeKey( json_, "ranges" );
      json_.StartArray();
      for( std::size_t i = 0; i + 1 < multipath.addressCount(); i += 2 ) {
         json_.StartObject();
         addressMember( "first", multipath.address( i ) );
         addressMember( "last", multipath.address( i + 1 ) );
         json_.EndObject();
      }
      json_.EndArray();
   } else {
      bytesMember( "hex", multipath.bytes() );
   }
   json_.EndObject();
}

void JsonPrinter::records( Message const & message ) {
   auto const object = [this]< class Record >( std::string_view key,
                                               std::optional< Record > const & record ) {
      if( !record )
         return;
      writeKey( json_, key );
      writeAttributes( json_, Kiv::typeOf< Record >(), &*record );
   };
   MessageRecords const records = recordsOf( message );
   json_.StartObject();
   object( "fecStack", records.fecStack );
   object( "downstreamMappings", records.downstreamMappings );
   object( "intfAndLabelStack", records.intfAndLabelStack );
   object( "pad", records.pad );
   if( !records.leftOut.empty() ) {
      writeKey( json_, "leftOut" );
      json_.StartArray();
      for( Problem const & leftOut : records.leftOut ) {
         json_.StartObject();
         member( "offset", leftOut.offset );
         member( "what", leftOut.text );
         json_.EndObject();
      }
      json_.EndArray();
   }
   json_.EndObject();
}

void JsonPrinter::problems( EchoPacket const & packet, Message const & message ) {
   json_.StartArray();
   for( std::vector< Problem > const * list : { &packet.problems, &message.problems } ) {
      for( Problem const & problem : *list ) {
         json_.StartObject();
         member( "offset", problem.offset );
         member( "problem", problem.text );
         if( problem.strayBytes != 0 )
            bytesMember( "hex", message.bytesOf( problem ) );
         json_.EndObject();
      }
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
   appendBytes( text_, bytes );
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
