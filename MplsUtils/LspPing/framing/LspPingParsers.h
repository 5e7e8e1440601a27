#pragma once

#include "MplsUtils/LspPing/framing/LspPingParserFamily.h"

namespace LspPing {

// The parser family, in the order of its places in the module: each row is a view and the
// attributes of it that the parser forwards. A parser for a new view is one more row here, one in
// LspPingParsers.cpp and one in the module's list.

LSPPING_PARSER( Hdr, version, globalFlags, messageType, replyMode, returnCode, returnSubcode,
                senderHandle, sequenceNumber, tsSentSeconds, tsSentmSeconds, tsRcvdSeconds,
                tsRcvdmSeconds, valid, stringValue );
LSPPING_PARSER( NodeAddrSubTlv, type, subType, subTypeLen, addr, valid, totalLength, stringValue );
LSPPING_PARSER( EchoJitterTlv, type, length, jitter, valid, totalLength, stringValue );
LSPPING_PARSER( P2mpFecStackSubTlv, type, family, addrLen, rootAddr, opaqueLen, valid, stringValue,
                totalLength );
LSPPING_PARSER( OpaqueValGenSubTlv, type, length, lspId, valid, stringValue, totalLength );
LSPPING_PARSER( OpaqueValSGSubTlv, type, length, sourceAddr, groupAddr, valid, stringValue,
                totalLength );
LSPPING_PARSER( DdmapTlv, type, length, mtu, addrType, dsFlags, dsIpAddr, dsIntfAddr, retCode,
                retSubcode, subTlvLen, valid, stringValue, totalLength );
LSPPING_PARSER( MultipathSubTlv, type, length, multipathType, multipathLength, valid );
LSPPING_PARSER( FecStackChangeV4SubTlv, type, operType, addrType, fecTlvLen, reserved, peerAddr,
                valid );
LSPPING_PARSER( FecStackChangeV6SubTlv, type, operType, addrType, fecTlvLen, reserved, peerAddr,
                valid );
LSPPING_PARSER( FecStackChangeUnspecifiedSubTlv, type, operType, addrType, fecTlvLen, reserved,
                valid );
LSPPING_PARSER( LdpIpv4SubTlv, ipPrefix, prefixLen, valid, stringValue, totalLength );
LSPPING_PARSER( RsvpIpv4SubTlv, destination, tunnelId, extendedTunnelId, senderAddress, lspId,
                valid, stringValue, totalLength );
LSPPING_PARSER( RsvpP2mpIpv4SubTlv, p2mpId, tunnelId, extendedTunnelId, senderAddress, lspId, valid,
                stringValue, totalLength );
LSPPING_PARSER( VpnIpv4SubTlv, rd, ipPrefix, prefixLen, valid, stringValue, totalLength );
LSPPING_PARSER( VpnIpv6SubTlv, rd, ipPrefix, prefixLen, valid, stringValue, totalLength );
LSPPING_PARSER( Fec128Ipv4SubTlv, senderAddr, receiverAddr, pwId, pwType, valid, stringValue,
                totalLength );
LSPPING_PARSER( Fec129Ipv4SubTlv, senderAddr, receiverAddr, pwType, pwGenId, valid, stringValue,
                totalLength );
LSPPING_PARSER( SrIpv4SubTlv, ipPrefix, prefixLen, algorithm, valid, stringValue, totalLength );
LSPPING_PARSER( SrIpv6SubTlv, ipPrefix, prefixLen, algorithm, valid, stringValue, totalLength );
LSPPING_PARSER( NilFecSubTlv, label, valid, stringValue, totalLength );
LSPPING_PARSER( BgpLuIpv4SubTlv, ipPrefix, prefixLen, valid, stringValue, totalLength );
LSPPING_PARSER( BgpLuIpv6SubTlv, ipPrefix, prefixLen, valid, stringValue, totalLength );
LSPPING_PARSER( GenericIpv4SubTlv, ipPrefix, prefixLen, valid, stringValue, totalLength );
LSPPING_PARSER( GenericIpv6SubTlv, ipPrefix, prefixLen, valid, stringValue, totalLength );
LSPPING_PARSER( EntropyLabelFecSubTlv, label, valid, stringValue, totalLength );
LSPPING_PARSER( ReplyTosTlv, type, length, tos, valid, stringValue, totalLength );
// The one parser that copies: it builds an LspPingPadTlv of the heap from the packet's bytes. The
// object is not the parser's: whoever takes it through header() destroys it.
LSPPING_PARSER( PadTlv, type, length, padType, padding, valid, stringValue, totalLength );
LSPPING_PARSER( VeloraVendorPrivateTlv, valid, stringValue, totalLength );
LSPPING_PARSER( MultiLabelSubTlv, lookupLabelCount, flags, valid, stringValue, totalLength );

} // namespace LspPing
