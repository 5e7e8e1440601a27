#include "bench/Rows.h"

#include "Comparator.pb.h"

#include "MplsUtils/LspPing/platform/KivOrlo/ValueText.h"
#include "MplsUtils/LspPing/record/LspPingFecInfo.h"

#include <google/protobuf/text_format.h>

#include <cstdlib>
#include <string>

// The text of a large record, with records inside, and reading it back. Addresses are strings on
// the other side, which has no type for them; no attribute is at its default there, since protobuf
// would leave it out.
namespace {

constexpr char fecText[] =
   "LspPing::LspPingFecInfo(fecTlvType=FEC129Pseudowire, dstPrefix=10.1.2.0/24, "
   "rd=281474983264257, oamStandard=ituT, algorithm=128, mplsLabel=100704, "
   "rsvpSpGroupId=Rsvp::RsvpSpGroupId(p2mpId=7, tunnelId=21362, extendedTunnelId=12.4.4.4, "
   "lspId=16, subGroupOriginatorId=12.4.4.5, subGroupId=3), "
   "rsvpSpId=Rsvp::RsvpSpId(tunnelEndPoint=12.1.1.1, tunnelId=21362, extendedTunnelId=12.4.4.4, "
   "lspId=16), rsvpSenderAddr=12.4.4.4, pwInfo=LspPing::LspPingPwInfo(senderAddr=10.0.0.1, "
   "receiverAddr=10.0.0.9, pwId=1001, pwGenId=agi 1:1011121314151617 saii 1:20212223 taii "
   "1:30313233, pwType=5, controlWordPresent=true, activeCcType=2), opqType=SGIpv4, "
   "genericOpqVal=4711, sourceAddrOpqVal=192.0.2.17, groupAddrOpqVal=232.1.1.1, "
   "peerAddr=2001:db8::9, fecTlvLen=44, igpProtocol=ospf)";

LspPing::LspPingFecInfo fec() {
   Kiv::CharRange in( fecText );
   return LspPing::LspPingFecInfo( in );
}

bench::FecInfo comparedFec() {
   bench::FecInfo made;
   made.set_fec_tlv_type( bench::fec129 );
   made.set_dst_prefix( "10.1.2.0/24" );
   made.set_rd( 281474983264257 );
   made.set_oam_standard( 1 );
   made.set_algorithm( 128 );
   made.set_mpls_label( 100704 );
   bench::RsvpGroupId & group = *made.mutable_rsvp_sp_group_id();
   group.set_p2mp_id( 7 );
   group.set_tunnel_id( 21362 );
   group.set_extended_tunnel_id( "12.4.4.4" );
   group.set_lsp_id( 16 );
   group.set_sub_group_originator_id( "12.4.4.5" );
   group.set_sub_group_id( 3 );
   bench::RsvpId & session = *made.mutable_rsvp_sp_id();
   session.set_tunnel_end_point( "12.1.1.1" );
   session.set_tunnel_id( 21362 );
   session.set_extended_tunnel_id( "12.4.4.4" );
   session.set_lsp_id( 16 );
   made.set_rsvp_sender_addr( "12.4.4.4" );
   bench::PwInfo & pseudowire = *made.mutable_pw_info();
   pseudowire.set_sender_addr( "10.0.0.1" );
   pseudowire.set_receiver_addr( "10.0.0.9" );
   pseudowire.set_pw_id( 1001 );
   pseudowire.set_pw_gen_id( "agi 1:1011121314151617 saii 1:20212223 taii 1:30313233" );
   pseudowire.set_pw_type( 5 );
   pseudowire.set_control_word_present( true );
   pseudowire.set_active_cc_type( 2 );
   made.set_opq_type( 3 );
   made.set_generic_opq_val( 4711 );
   made.set_source_addr_opq_val( "192.0.2.17" );
   made.set_group_addr_opq_val( "232.1.1.1" );
   made.set_peer_addr( "2001:db8::9" );
   made.set_fec_tlv_len( 44 );
   made.set_igp_protocol( 1 );
   return made;
}

void fecTextOurs( benchmark::State & state ) {
   LspPing::LspPingFecInfo const made = fec();
   Kiv::TypeRef const type = Kiv::typeOf< LspPing::LspPingFecInfo >();
   for( auto _ : state )
      benchmark::DoNotOptimize( KivOrlo::valueToStrep( type, &made ) );
}

void fecTextPeer( benchmark::State & state ) {
   bench::FecInfo const made = comparedFec();
   for( auto _ : state ) {
      std::string text;
      google::protobuf::TextFormat::PrintToString( made, &text );
      benchmark::DoNotOptimize( text );
   }
}

void fecParseOurs( benchmark::State & state ) {
   for( auto _ : state ) {
      Kiv::CharRange in( fecText );
      LspPing::LspPingFecInfo const read( in );
      benchmark::DoNotOptimize( read );
   }
}

void fecParsePeer( benchmark::State & state ) {
   std::string text;
   google::protobuf::TextFormat::PrintToString( comparedFec(), &text );
   for( auto _ : state ) {
      bench::FecInfo read;
      if( !google::protobuf::TextFormat::ParseFromString( text, &read ) )
         std::abort();
      benchmark::DoNotOptimize( read );
   }
}

int const rows = Bench::row( "fecText", fecTextOurs, fecTextPeer ) +
                 Bench::row( "fecParse", fecParseOurs, fecParsePeer );

} // namespace
