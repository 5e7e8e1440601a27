#include "bench/Rows.h"

#include "Comparator.pb.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/platform/Kiv/Access.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace {

// The same eight 32-bit fields on both sides, not in their order.
constexpr std::array< U16, 8 > ids{ 17, 8, 21, 12, 16, 9, 18, 11 };
constexpr std::array< std::string_view, 8 > ourNames{
   "sequenceNumber", "senderHandleNbo",   "tsRcvdmSeconds", "tsRcvdSecondsNbo",
   "senderHandle",   "sequenceNumberNbo", "tsSentSeconds",  "tsSentmSecondsNbo",
};
std::array< std::string, 8 > const peerNames{
   "sequence_number", "sender_handle_nbo",   "ts_rcvdm_seconds", "ts_rcvd_seconds_nbo",
   "sender_handle",   "sequence_number_nbo", "ts_sent_seconds",  "ts_sentm_seconds_nbo",
};

bench::EchoHeader filledMessage() {
   bench::EchoHeader message;
   auto const * descriptor = message.GetDescriptor();
   for( int i = 0; i < descriptor->field_count(); ++i )
      message.GetReflection()->SetUInt32( &message, descriptor->field( i ), 7 );
   return message;
}

void readByIdOurs( benchmark::State & state ) {
   LspPing::LspPingHdr header;
   Kiv::TypeRef const type = Kiv::typeNamed( "LspPing::LspPingHdr" );
   for( auto _ : state ) {
      for( U16 const id : ids ) {
         U32 value = 0;
         if( attributeAccess( type, &header, id, Kiv::OpCode::read, &value ) != Kiv::Outcome::done )
            std::abort();
         benchmark::DoNotOptimize( value );
      }
   }
}

void readByIdPeer( benchmark::State & state ) {
   bench::EchoHeader const message = filledMessage();
   auto const * descriptor = message.GetDescriptor();
   auto const * reflection = message.GetReflection();
   for( auto _ : state ) {
      for( U16 const id : ids ) {
         auto const * field = descriptor->FindFieldByNumber( id );
         if( field == nullptr )
            std::abort();
         benchmark::DoNotOptimize( reflection->GetUInt32( message, field ) );
      }
   }
}

// The comparator's best case: the fields have been looked up before.
void readKnownPeer( benchmark::State & state ) {
   bench::EchoHeader const message = filledMessage();
   auto const * reflection = message.GetReflection();
   std::array< google::protobuf::FieldDescriptor const *, ids.size() > fields{};
   for( std::size_t i = 0; i < ids.size(); ++i )
      fields[i] = message.GetDescriptor()->FindFieldByNumber( ids[i] );
   for( auto _ : state )
      for( auto const * field : fields )
         benchmark::DoNotOptimize( reflection->GetUInt32( message, field ) );
}

void readByNameOurs( benchmark::State & state ) {
   LspPing::LspPingHdr header;
   Kiv::TypeRef const type = Kiv::typeNamed( "LspPing::LspPingHdr" );
   for( auto _ : state ) {
      for( std::string_view const name : ourNames ) {
         Kiv::FoundAttribute const found = attributeNamed( type, name );
         if( !found )
            std::abort();
         U32 value = 0;
         if( access( found.declaring.record(), *found.attribute, &header, Kiv::OpCode::read,
                     &value ) != Kiv::Outcome::done )
            std::abort();
         benchmark::DoNotOptimize( value );
      }
   }
}

void readByNamePeer( benchmark::State & state ) {
   bench::EchoHeader const message = filledMessage();
   auto const * descriptor = message.GetDescriptor();
   auto const * reflection = message.GetReflection();
   for( auto _ : state ) {
      for( std::string const & name : peerNames ) {
         auto const * field = descriptor->FindFieldByName( name );
         if( field == nullptr )
            std::abort();
         benchmark::DoNotOptimize( reflection->GetUInt32( message, field ) );
      }
   }
}

void writeByIdOurs( benchmark::State & state ) {
   LspPing::LspPingHdr header;
   Kiv::TypeRef const type = Kiv::typeNamed( "LspPing::LspPingHdr" );
   U32 value = 1;
   for( auto _ : state ) {
      for( U16 const id : ids ) {
         ++value;
         if( attributeAccess( type, &header, id, Kiv::OpCode::write, &value ) !=
             Kiv::Outcome::done )
            std::abort();
         benchmark::ClobberMemory();
      }
   }
   benchmark::DoNotOptimize( header );
}

void writeByIdPeer( benchmark::State & state ) {
   bench::EchoHeader message = filledMessage();
   auto const * descriptor = message.GetDescriptor();
   auto const * reflection = message.GetReflection();
   U32 value = 1;
   for( auto _ : state ) {
      for( U16 const id : ids ) {
         ++value;
         auto const * field = descriptor->FindFieldByNumber( id );
         if( field == nullptr )
            std::abort();
         reflection->SetUInt32( &message, field, value );
         benchmark::ClobberMemory();
      }
   }
   benchmark::DoNotOptimize( message );
}

int const rows = Bench::row( "readById", readByIdOurs, readByIdPeer ) +
                 Bench::row( "readByIdKnown", readByIdOurs, readKnownPeer ) +
                 Bench::row( "readByName", readByNameOurs, readByNamePeer ) +
                 Bench::row( "writeById", writeByIdOurs, writeByIdPeer );

} // namespace
