#include "bench/Rows.h"

#include "Comparator.pb.h"

#include "MplsUtils/LspPing/framing/LspPingHdr.h"
#include "MplsUtils/LspPing/framing/NtpTime.h"
#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"

#include <fmt/compile.h>
#include <google/protobuf/text_format.h>

#include <cstdlib>
#include <string>

namespace {

LspPing::LspPingHdr header() {
   LspPing::LspPingHdr made;
   made.versionIs( 1 );
   made.messageTypeIs( 2 );
   made.replyModeIs( 2 );
   made.returnCodeIs( 3 );
   made.returnSubcodeIs( 1 );
   made.senderHandleIs( 0x1234abcd );
   made.sequenceNumberIs( 4711 );
   made.tsSentSecondsIs( 0xe12f3456 );
   made.tsSentmSecondsIs( 0x80001234 );
   made.tsRcvdSecondsIs( 0xe12f3456 );
   made.tsRcvdmSecondsIs( 0x80123456 );
   return made;
}

// The same text with the comparator, which also asks first whether the header is valid.
std::string formatted( LspPing::LspPingHdr const & h ) {
   if( !h.valid() )
      return "Invalid LspPingHdr";
   return fmt::format(
      FMT_COMPILE( "LspPingHdr:\tver({}),\tflag({}),\tmsgType({}),\treplyMode({}),\treturnCode({}),"
                   "\treturnSubcode({}),\tsenderHandle(0x{:x}),\tseqNum(0x{:x}),"
                   "\ttsSenSeconds(0x{:x}),\ttsSentmSeconds(0x{:x}),\ttsRcvdSeconds(0x{:x}),"
                   "\ttsRcvdmSeconds(0x{:x})" ),
      h.version(), h.globalFlags(), h.messageType(), h.replyMode(), h.returnCode(),
      h.returnSubcode(), h.senderHandle(), h.sequenceNumber(), h.tsSentSeconds(),
      h.tsSentmSeconds(), h.tsRcvdSeconds(), h.tsRcvdmSeconds() );
}

void headerTextOurs( benchmark::State & state ) {
   LspPing::LspPingHdr h = header();
   for( auto _ : state ) {
      benchmark::DoNotOptimize( &h );
      benchmark::ClobberMemory();
      benchmark::DoNotOptimize( h.stringValue() );
   }
}

void headerTextPeer( benchmark::State & state ) {
   LspPing::LspPingHdr h = header();
   if( formatted( h ) != h.stringValue() )
      std::abort();
   for( auto _ : state ) {
      benchmark::DoNotOptimize( &h );
      benchmark::ClobberMemory();
      benchmark::DoNotOptimize( formatted( h ) );
   }
}

void recordTextOurs( benchmark::State & state ) {
   LspPing::NtpTimeU64 const time( 3900000000, 2147483648 );
   Kiv::TypeRef const type = Kiv::typeOf< LspPing::NtpTimeU64 >();
   for( auto _ : state )
      benchmark::DoNotOptimize( KivOrlo::valueToStrep( type, &time ) );
}

bench::NtpTime comparedTime() {
   bench::NtpTime time;
   time.set_seconds( 3900000000 );
   time.set_fractions( 2147483648 );
   return time;
}

void recordTextPeer( benchmark::State & state ) {
   bench::NtpTime const time = comparedTime();
   for( auto _ : state ) {
      std::string text;
      google::protobuf::TextFormat::PrintToString( time, &text );
      benchmark::DoNotOptimize( text );
   }
}

void recordParseOurs( benchmark::State & state ) {
   LspPing::NtpTimeU64 const time( 3900000000, 2147483648 );
   std::string const text = KivOrlo::valueToStrep( Kiv::typeOf< LspPing::NtpTimeU64 >(), &time );
   for( auto _ : state ) {
      Kiv::CharRange in( text );
      LspPing::NtpTimeU64 const read( in );
      benchmark::DoNotOptimize( read );
   }
}

void recordParsePeer( benchmark::State & state ) {
   std::string text;
   google::protobuf::TextFormat::PrintToString( comparedTime(), &text );
   for( auto _ : state ) {
      bench::NtpTime read;
      if( !google::protobuf::TextFormat::ParseFromString( text, &read ) )
         std::abort();
      benchmark::DoNotOptimize( read );
   }
}

int const rows = Bench::row( "headerText", headerTextOurs, headerTextPeer ) +
                 Bench::row( "recordText", recordTextOurs, recordTextPeer ) +
                 Bench::row( "recordParse", recordParseOurs, recordParsePeer );

} // namespace
