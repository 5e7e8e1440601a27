"""What tshark calls the fields of each element, and what it has no fields for."""

from typing import Optional

# Attribute: (field, offset in the element). The protocol's prefix is left out of the names.
HEADER = {
    "version": ("version", 0), "globalFlags": ("flags", 2), "messageType": ("msg_type", 4),
    "replyMode": ("reply_mode", 5), "returnCode": ("return_code", 6),
    "returnSubcode": ("return_subcode", 7), "senderHandle": ("sender_handle", 8),
    "sequenceNumber": ("sequence", 12),
}
TLV = {"type": ("tlv.type", 0), "length": ("tlv.len", 2)}
FEC = {"type": ("tlv.fec.type", 0), "length": ("tlv.fec.len", 2)}


def prefix(address: str, bits: str, size: int, start: int = 4) -> dict:
    padding = start + size + 1
    return FEC | {"ipPrefix": (f"tlv.fec.{address}", start),
                  "prefixLen": (f"tlv.fec.{bits}", start + size),
                  "mbz0": ("padding", padding, slice(0, 1)),
                  "mbz1": ("padding", padding, slice(1, 3))}


def vpn(address: str, size: int) -> dict:
    return prefix(address, "vpn_len", size, 12) | {"rd": ("tlv.fec.vpn_route_dist", 4)}


def segment(address: str, size: int) -> dict:
    # The byte behind the protocol is reserved in RFC 8287 and has the algorithm for some.
    return FEC | {"ipPrefix": (f"tlv.fec.{address}", 4),
                  "prefixLen": ("tlv.fec.igp_mask", 4 + size),
                  "protocol": ("tlv.fec.igp_protocol", 5 + size),
                  "algorithm": ("tlv.fec.igp_reserved", 6 + size, slice(0, 1)),
                  "reserved": ("tlv.fec.igp_reserved", 6 + size, slice(1, 2))}


def rsvp(first: tuple, names: str, addresses: str) -> dict:
    return FEC | {first[0]: (f"tlv.fec.{first[1]}", 4), "mbz0": (f"tlv.fec.{names}_mbz1", 8),
                  "tunnelId": (f"tlv.fec.{names}_tun_id", 10),
                  "extendedTunnelId": (f"tlv.fec.{addresses}_ext_tun_id", 12),
                  "senderAddress": (f"tlv.fec.{addresses}_sender", 16),
                  "mbz1": (f"tlv.fec.{names}_mbz2", 20), "lspId": (f"tlv.fec.{names}_lsp_id", 22)}


def mapping(address: str, interface: tuple, size: int, interface_size: int,
            ours: str = "dsIpAddr") -> dict:
    end = 8 + size + interface_size
    return TLV | {"mtu": ("tlv.ds_map.mtu", 4), "addrType": ("tlv.ds_map.addr_type", 6),
                  "dsFlags": ("tlv.ds_map.res", 7), ours: (f"tlv.ds_map.{address}", 8),
                  interface[0]: (f"tlv.ds_map.{interface[1]}", 8 + size),
                  "multipathType": ("tlv.ds_map.hash_type", end),
                  "depthLimit": ("tlv.ds_map.depth", end + 1),
                  "multipathLength": ("tlv.ds_map.multi_len", end + 2)}


def detailed(address: str, interface: tuple, size: int, interface_size: int,
             ours: str = "dsIpAddr") -> dict:
    end = 8 + size + interface_size
    return TLV | {"mtu": ("lspping.tlv.dd_map.mtu", 4), "addrType": ("tlv.dd_map.addr_type", 6),
                  "dsFlags": ("tlv.dd_map.res", 7), ours: (f"tlv.dd_map.{address}", 8),
                  interface[0]: (f"tlv.dd_map.{interface[1]}", 8 + size),
                  "retCode": ("tlv.dd_map.return_code", end),
                  "retSubcode": ("tlv.dd_map.return_subcode", end + 1),
                  "subTlvLen": ("tlv.dd_map.subtlv_len", end + 2)}


# A sub-TLV of a mapping has no fields for its header, but the bytes of it all.
MAPPING_SUB = {"type": ("", 0, slice(0, 2)), "length": ("", 0, slice(2, 4))}


def stack_change(peer: Optional[str]) -> dict:
    return MAPPING_SUB | {"operType": ("tlv.ddstlv_map.op_type", 4),
                          "addrType": ("tlv.ddstlv_map.address_type", 5),
                          "fecTlvLen": ("subtlv.dd_map.fec_tlv_type", 6),
                          "reserved": ("subtlv.dd_map.reserved", 7)} \
        | ({"peerAddr": (f"tlv.dd_map.{peer}", 8)} if peer else {})


def interface_stack(address: str, interface: tuple, size: int) -> dict:
    return TLV | {"addrType": ("tlv.ilso.addr_type", 4),
                  "mbz0": ("tlv.ilso.mbz", 5, slice(0, 1)),
                  "mbz1": ("tlv.ilso.mbz", 5, slice(1, 3)),
                  "addr": (f"tlv.{address}", 8), interface[0]: (f"tlv.{interface[1]}", 8 + size)}


def adjacency(size: int, node_size: int) -> dict:
    # The names tell what the adjacency's type and the protocol make of the bytes.
    def place(name: str, offset: int) -> tuple:
        kinds = ("ident", "ipv4", "ipv6", "ospf", "isis")
        return "|".join(f"tlv.fec.igp_adj_{name}.{kind}" for kind in kinds), offset
    end = 8 + 2 * size
    return FEC | {"adjType": ("tlv.fec.igp_adj_type", 4), "protocol": ("tlv.fec.igp_protocol", 5),
                  "reserved": ("tlv.fec.igp_reserved", 6),
                  "localIntfId": place("local_id", 8), "remoteIntfId": place("remote_id", 8 + size),
                  "advertisingNodeId": place("adv_node_id", end),
                  "receivingNodeId": place("rec_node_id", end + node_size)}


def node_id(name: str, offset: int) -> tuple:
    # Shown as an address; the bytes are a number.
    return f"lspping.tlv.{name}", offset, slice(0, 4)


IDENTIFIER = TLV | {"globalId": ("lspping.tlv.src.addr.gid", 4),
                    "nodeId": node_id("src.addr.nid", 8)}
RESPONDER = {"type": ("tlv.resp_id.type", 0), "length": ("tlv.resp_id.length", 2),
             "address": ("tlv.resp_id.ipv4", 4)}
VENDOR = TLV | {"enterpriseNumber": ("tlv.vendor_id", 4)}
INTERFACE_INDEX = MAPPING_SUB | {"intfIndex": ("subtlv.dd_map.value", 4)}

ELEMENTS = {
    "TargetFecStack": TLV,
    "LspPingErroredTlvsTlv": TLV,
    "LspPingLabelStackSubTlv": MAPPING_SUB,
    "LspPingLdpIpv4SubTlv": prefix("ldp_ipv4", "ldp_ipv4_mask", 4),
    "LspPingGenericIpv4SubTlv": prefix("gen_ipv4", "gen_ipv4_mask", 4),
    "LspPingGenericIpv6SubTlv": prefix("gen_ipv6", "gen_ipv6_mask", 16),
    "LspPingBgpLuIpv4SubTlv": prefix("bgp_ipv4", "bgp_len", 4),
    "LspPingBgpLuIpv6SubTlv": prefix("bgp_ipv6", "bgp_len", 16),
    "LspPingVpnIpv4SubTlv": vpn("vpn_ipv4", 4),
    "LspPingVpnIpv6SubTlv": vpn("vpn_ipv6", 16),
    "LspPingSrIpv4SubTlv": segment("igp_ipv4", 4),
    "LspPingSrIpv6SubTlv": segment("igp_ipv6", 16),
    "LspPingRsvpIpv4SubTlv": rsvp(("destination", "rsvp_ipv4_ep"), "rsvp_ip", "rsvp_ipv4"),
    "LspPingRsvpP2mpIpv4SubTlv": rsvp(("p2mpId", "rsvp_p2mp_ipv4_id"), "rsvp_p2mp_ip",
                                      "rsvp_p2mp_ipv4"),
    "LspPingNilFecSubTlv": FEC | {"label": ("tlv.fec.nil_label", 4)},
    "LspPingEntropyLabelFecSubTlv": FEC | {"label": None},
    "LspPingP2mpFecStackSubTlv": FEC | dict.fromkeys(
        ("family", "addrLen", "rootAddr", "opaqueLen")),
    "LspPingOpaqueValGenSubTlv": dict.fromkeys(("lspId",)),
    "LspPingOpaqueValSGSubTlv": dict.fromkeys(("sourceAddr", "groupAddr")),
    "LspPingFec128Ipv4SubTlv": FEC | {
        "senderAddr": ("tlv.fec.l2cid_sender", 4), "receiverAddr": ("tlv.fec.l2cid_remote", 8),
        "pwId": ("tlv.fec.l2cid_vcid", 12), "pwType": ("tlv.fec.l2cid_encap", 16),
        "mbz": ("tlv.fec.l2cid_mbz", 18)},
    "LspPingFec129Ipv4SubTlv": FEC | dict.fromkeys(
        ("senderAddr", "receiverAddr", "pwType", "pwGenId")),
    "LspPingDownstreamMappingIpv4Tlv": mapping("ds_ip", ("dsIntfAddr", "int_ip"), 4, 4),
    "LspPingDownstreamMappingIpv4UnnumberedTlv": mapping("ds_ip", ("dsIntfId", "if_index"), 4, 4),
    "LspPingDownstreamMappingIpv6Tlv": mapping("ds_ipv6", ("dsIntfAddr", "int_ipv6"), 16, 16),
    "LspPingDownstreamMappingIpv6UnnumberedTlv": mapping("ds_ipv6", ("dsIntfId", "if_index"), 16,
                                                         4),
    "LspPingDdmapTlv": detailed("ds_ip", ("dsIntfAddr", "int_ip"), 4, 4),
    "LspPingDdmapUnnumberedTlv": detailed("ds_ip", ("dsIntfId", "if_index"), 4, 4),
    "LspPingDdmapV6Tlv": detailed("ds_ipv6", ("dsIntfAddr", "int_ipv6"), 16, 16),
    "LspPingDdmapV6UnnumberedTlv": detailed("ds_ipv6", ("dsIntfId", "if_index"), 16, 4),
    "LspPingMultipathSubTlv": MAPPING_SUB | {
        "multipathType": ("subtlv.dd_map.multipath_type", 4),
        "multipathLength": ("subtlv.dd_map.multipath_length", 5),
        "mbz": ("subtlv.dd_map.reserved", 7)},
    "LspPingFecStackChangeV4SubTlv": stack_change("remote_ip"),
    "LspPingFecStackChangeV6SubTlv": stack_change("remote_ipv6"),
    "LspPingFecStackChangeUnspecifiedSubTlv": stack_change(None),
    "LspPingIntfAndLabelStackIpv4Tlv": interface_stack(
        "ilso_ipv4.addr", ("intf", "ilso_ipv4.int_addr"), 4),
    "LspPingIntfAndLabelStackIpv4UnnumberedTlv": interface_stack(
        "ilso_ipv4.addr", ("intfId", "ilso.int_index"), 4),
    "LspPingIntfAndLabelStackIpv6Tlv": interface_stack(
        "ilso_ipv6.addr", ("intf", "ilso_ipv6.int_addr"), 16),
    "LspPingIntfAndLabelStackIpv6UnnumberedTlv": interface_stack(
        "ilso_ipv6.addr", ("intfId", "ilso.int_index"), 16),
    "LspPingEchoJitterTlv": TLV | {"jitter": ("tlv.echo_jitter", 4)},
    "LspPingPadTlv": TLV | {"padType": ("tlv.pad_action", 4), "padding": ("tlv.pad_padding", 5)},
    "LspPingReplyTosTlv": TLV | {"tos": ("tlv.reply.tos", 4),
                                 "mbz0": ("tlv.reply.tos.mbz", 5, slice(0, 1)),
                                 "mbz1": ("tlv.reply.tos.mbz", 5, slice(1, 3))},
    "LspPingNodeAddrSubTlv": TLV | {"subType": ("tlv.resp_id.type", 4),
                                    "subTypeLen": ("tlv.resp_id.length", 6),
                                    "addr": ("tlv.resp_id.ipv4", 8)},
    "LspPingLdpIpv6SubTlv": prefix("ldp_ipv6", "ldp_ipv6_mask", 16),
    "LspPingRsvpIpv6SubTlv": FEC | {
        "destination": ("tlv.fec.rsvp_ipv6_ep", 4), "mbz0": ("tlv.fec.rsvp_ip_mbz1", 20),
        "tunnelId": ("tlv.fec.rsvp_ip_tun_id", 22),
        "extendedTunnelId": ("tlv.fec.rsvp_ipv6_ext_tun_id", 24),
        "senderAddress": ("tlv.fec.rsvp_ipv6_sender", 40), "mbz1": ("tlv.fec.rsvp_ip_mbz2", 56),
        "lspId": ("tlv.fec.rsvp_ip_lsp_id", 58)},
    "LspPingRsvpP2mpIpv6SubTlv": FEC | dict.fromkeys(
        ("p2mpId", "mbz0", "tunnelId", "extendedTunnelId", "senderAddress", "mbz1", "lspId")),
    "LspPingL2VpnEndpointSubTlv": FEC | {
        "rd": ("tlv.fec.l2vpn_route_dist", 4), "senderVeId": ("tlv.fec.l2vpn_send_ve_id", 12),
        "receiverVeId": ("tlv.fec.l2vpn_recv_ve_id", 14),
        "pwType": ("tlv.fec.l2vpn_encap_type", 16), "mbz": ("padding", 18)},
    "LspPingFec128DeprecatedSubTlv": FEC | {
        "receiverAddr": ("tlv.fec.l2cid_remote", 4), "pwId": ("tlv.fec.l2cid_vcid", 8),
        "pwType": ("tlv.fec.l2cid_encap", 12), "mbz": ("tlv.fec.l2cid_mbz", 14)},
    "LspPingFec128Ipv6SubTlv": FEC | {
        "senderAddr": ("tlv.fec.pw_ipv6_128_sender", 4),
        "receiverAddr": ("tlv.fec.pw_ipv6_128_remote", 20),
        "pwId": ("tlv.fec.fec.pw_ipv6_128_pwid", 36),
        "pwType": ("tlv.fec.fec.pw_ipv6_128_pw_type", 40), "mbz": ("padding", 42)},
    "LspPingStaticLspSubTlv": FEC | {
        "sourceGlobalId": ("lspping.tlv.src.gid", 4), "sourceNodeId": node_id("src.nid", 8),
        "sourceTunnelNum": ("lspping.tlv.tunnel.no", 12), "lspNum": ("lspping.tlv.lsp.no", 14),
        "destinationGlobalId": ("lspping.tlv.dst.gid", 16),
        "destinationNodeId": node_id("dst.nid", 20),
        "destinationTunnelNum": ("lspping.tlv.dst.tunnel.no", 24),
        "mbz": ("lspping.tlv.resv", 26)},
    "LspPingStaticPseudowireSubTlv": FEC | {
        "serviceId": ("lspping.tlv.pw.serv.identifier", 4),
        "sourceGlobalId": ("lspping.tlv.src.gid", 12), "sourceNodeId": node_id("src.nid", 16),
        "sourceAcId": ("lspping.tlv.pw.src.ac.id", 20),
        "destinationGlobalId": ("lspping.tlv.dst.gid", 24),
        "destinationNodeId": node_id("dst.nid", 28),
        "destinationAcId": ("lspping.tlv.pw.dst.ac.id", 32)},
    "LspPingIgpAdjacencyIpv4SubTlv": adjacency(4, 4),
    "LspPingIgpAdjacencyIpv4IsisSubTlv": adjacency(4, 6),
    "LspPingIgpAdjacencyIpv6SubTlv": adjacency(16, 4),
    "LspPingIgpAdjacencyIpv6IsisSubTlv": adjacency(16, 6),
    "LspPingDownstreamMappingNonIpTlv": mapping(
        "ingress.if.num", ("egressIfNum", "egress.if.num"), 4, 4, "ingressIfNum"),
    "LspPingDdmapNonIpTlv": detailed(
        "ingress.if.num", ("egressIfNum", "egress.if.num"), 4, 4, "ingressIfNum"),
    "LspPingLocalIntfIndexSubTlv": INTERFACE_INDEX,
    "LspPingRemoteIntfIndexSubTlv": INTERFACE_INDEX,
    "LspPingReversePathTargetFecStackTlv": TLV,
    "LspPingVendorEnterpriseNumberTlv": VENDOR,
    "LspPingVendorPrivateTlv": VENDOR,
    "LspPingSourceIdTlv": IDENTIFIER,
    "LspPingDestinationIdTlv": IDENTIFIER,
    "LspPingBfdDiscriminatorTlv": TLV | {"discriminator": ("bfd_discriminator", 4)},
    "P2mpRespId": TLV,
    "LspPingResponderEgressIpv4SubTlv": RESPONDER,
    "LspPingResponderEgressIpv6SubTlv": RESPONDER,
    "LspPingResponderNodeIpv4SubTlv": RESPONDER,
    "LspPingResponderNodeIpv6SubTlv": RESPONDER,
    "LspPingVeloraVendorPrivateTlv": TLV | {"vendorIana": ("tlv.vendor_id", 4)},
    "LspPingMultiLabelSubTlv": dict.fromkeys(("type", "length", "lookupLabelCount", "flags")),
}

# Derived from the others, or not in the bytes.
DERIVED = {"typeNbo", "lengthNbo", "totalLength", "valid", "stringValue", "labelField",
           "minTlvLength", "additionalTlvLength"}

# Names of the fields of a label, by the kind of stack: label, tc, bos and the last byte.
LABELS = {
    "LspPingDownstreamMapping": ("tlv.ds_map.mp_label", "tlv.ds_map.mp_exp", "tlv.ds_map.mp_bos",
                                 "tlv.ds_map.mp_proto"),
    "LspPingLabelStack": ("subtlv.label", "subtlv.traffic_class", "subtlv.s_bit",
                          "tlv.ddstlv_map.mp_proto"),
    "LspPingIntfAndLabelStack": ("tlv.ilso_ipv4.label", "tlv.ilso_ipv4.exp", "tlv.ilso_ipv4.bos",
                                 "tlv.ilso_ipv4.ttl"),
}
# RFC 8029 section 3.4.1.1.
SIGNALING = {"dsInfoSignalingProtocolBgp": 2, "dsInfoSignalingProtocolLdp": 3}

DEPRECATED = ("SRIpv4Deprecated", "SRIpv6Deprecated")

# Of these it knows the code and the length at most, and nothing of what stands in them. Beginnings
# of the views' names, and where the elements are defined.
UNKNOWN = {
    "LspPingRsvpTunnel": "RFC 7110 section 4.3", "LspPingStaticTunnel": "RFC 7110 section 4.3",
    "LspPingReplyPath": "RFC 7110 section 4.2", "LspPingReplyTc": "RFC 7110 section 4.4",
    "LspPingFec129Ipv6": "RFC 6829 section 3.2", "LspPingMtLdp": "RFC 7307 section 4.3",
    "LspPingP2mpFecStackIpv6": "RFC 6425 section 3.1.2",
    "LspPingMp2mpFecStack": "RFC 6425 section 3.1.2",
    "LspPingP2mpPseudowire": "RFC 8339 section 3.1", "LspPingPeer": "RFC 9703 section 4",
    "LspPingSrP2mpPolicy": "RFC 9961 section 3.2.1.1", "LspPingEvpn": "RFC 9489 section 4",
    "LspPingSrPolicy": "RFC 9884 section 3", "LspPingSrCandidatePath": "RFC 9884 section 3",
    "LspPingSrSegmentList": "RFC 9884 section 3", "LspPingLsrCapability": "RFC 8611 section 6",
    "LspPingDetailedIntf": "RFC 8611 section 10", "LspPingBfdReversePath": "RFC 9612 section 3.1",
    "LspPingTimeToLive": "RFC 7394 section 3.1", "LspPingReplyModeOrder": "RFC 7737 section 3.2",
    "LspPingRelayNodeAddressStack": "RFC 7743 section 3.2", "LspPingEgress": "RFC 9655 section 3",
    "LspPingProxyEchoParameters": "RFC 7555 section 5",
    "LspPingReplyToAddress": "RFC 7555 section 5",
    "LspPingUpstreamNeighborAddress": "RFC 7555 section 5",
    "LspPingDownstreamNeighborAddress": "RFC 7555 section 5",
    "LspPingOamFunctions": "RFC 7759 section 2.2"}
