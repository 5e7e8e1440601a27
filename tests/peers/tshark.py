"""tshark, run on a capture: each field is found by its name and the place of its bytes."""

import calendar
import datetime
import subprocess
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass
from typing import Any, Callable, Optional

from claims import Claim, Known, Node, Report, same

REVIEWED = "4.0."
LEAST = 1500

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


def mapping(address: str, interface: tuple, size: int, interface_size: int) -> dict:
    end = 8 + size + interface_size
    return TLV | {"mtu": ("tlv.ds_map.mtu", 4), "addrType": ("tlv.ds_map.addr_type", 6),
                  "dsFlags": ("tlv.ds_map.res", 7), "dsIpAddr": (f"tlv.ds_map.{address}", 8),
                  interface[0]: (f"tlv.ds_map.{interface[1]}", 8 + size),
                  "multipathType": ("tlv.ds_map.hash_type", end),
                  "depthLimit": ("tlv.ds_map.depth", end + 1),
                  "multipathLength": ("tlv.ds_map.multi_len", end + 2)}


def detailed(address: str, interface: tuple, size: int, interface_size: int) -> dict:
    end = 8 + size + interface_size
    return TLV | {"mtu": ("lspping.tlv.dd_map.mtu", 4), "addrType": ("tlv.dd_map.addr_type", 6),
                  "dsFlags": ("tlv.dd_map.res", 7), "dsIpAddr": (f"tlv.dd_map.{address}", 8),
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


def unnumbered_ipv6(node: Node) -> bool:
    return node.type == "LspPingDownstreamMappingIpv6UnnumberedTlv"


def malformed_by(holds: Callable[[Node], bool]) -> Callable[[Node], list]:
    return lambda node: ["Malformed Packet (Exception occurred)"] if holds(node) else []


def is_nil(node: Node) -> bool:
    return node.type == "LspPingNilFecSubTlv"


def is_stack_change(node: Node) -> bool:
    return node.type.startswith("LspPingFecStackChange")


def is_multipath(node: Node) -> bool:
    return node.type == "LspPingMultipathSubTlv"


def is_label_set(node: Node) -> bool:
    return node.element.get("multipath", {}).get("type") == "maskedLabelSetMultipath"


def has_addresses(node: Node) -> bool:
    return is_multipath(node) and len(node.element["multipath"].get("addresses", [])) > 1


def has_no_peer(node: Node) -> bool:
    return node.type == "LspPingFecStackChangeUnspecifiedSubTlv"


KNOWN = [
    Known("a time stamp of zero", "shows 1970-01-01",
          "a request has no time of receipt yet, RFC 8029 section 3; zero seconds are 1900 in NTP's"
          " format, RFC 5905 section 6",
          holds=lambda c: c.ours == NO_TIME),
    Known("FECs behind a Nil FEC", "\"Malformed Packet\", the rest is lost",
          "a Nil FEC is one sub-TLV of length 4 and others may follow, RFC 8029 section 3.2.17",
          holds=lambda c: c.node.behind(is_nil),
          complaints=malformed_by(lambda n: n.type == "LspPingEntropyLabelFecSubTlv")),
    Known("multicast LDP FEC and its opaque value", "shows bytes", "RFC 6425 section 3.1.2",
          holds=lambda c: c.where is None
          and c.node.within(lambda n: n.type == "LspPingP2mpFecStackSubTlv")),
    Known("FEC 129 pseudowire", "shows bytes", "RFC 8029 section 3.2.10",
          holds=lambda c: c.where is None and c.node.type == "LspPingFec129Ipv4SubTlv"),
    Known("segment routing FECs of the codes 31744 and 31745", "shows bytes",
          "the layout of RFC 8287 section 5 without the reserved bytes, from before its codes were"
          " assigned",
          holds=lambda c: c.node.element.get("name") in DEPRECATED
          and c.attribute not in ("type", "length")),
    Known("Downstream Mapping of address type 4", "reads an IPv4 address, then all at wrong places",
          "IPv6 address of 16 bytes and interface index of 4, RFC 4379 section 3.3",
          holds=lambda c: unnumbered_ipv6(c.node)
          and c.attribute not in ("type", "length", "mtu", "addrType", "dsFlags")),
    Known("Downstream Detailed Mapping of address type 2", "skips both addresses and warns",
          "IPv4 address and interface index, RFC 8029 section 3.4",
          holds=lambda c: c.node.type == "LspPingDdmapUnnumberedTlv"
          and c.attribute in ("dsIpAddr", "dsIntfId"),
          complaints=lambda n: ["Unknown Address Type (2)"]
          if n.type == "LspPingDdmapUnnumberedTlv" else []),
    Known("Downstream Detailed Mapping of address type 4",
          "skips 8 bytes where 20 are, then all at wrong places",
          "IPv6 address and interface index, RFC 8029 section 3.4",
          holds=lambda c: c.node.within(lambda n: n.type == "LspPingDdmapV6UnnumberedTlv")
          and c.attribute not in ("mtu", "addrType", "dsFlags")
          and not (c.node.parent is None and c.attribute in ("type", "length")),
          complaints=lambda n: ["Unknown Address Type (4)",
                                "Invalid Sub-tlv Length (claimed 18, found 11)"]
          if n.type == "LspPingDdmapV6UnnumberedTlv" else []),
    Known("multipath information of two or more addresses", "\"Invalid Sub-tlv Length\"",
          "type 2 is a list of addresses, RFC 8029 section 3.4.1.1.1",
          holds=lambda c: has_addresses(c.node) and c.attribute not in MAPPING_SUB,
          complaints=lambda n: ["Invalid Sub-tlv Length (claimed 8, should be 4)"]
          if has_addresses(n) else []),
    Known("multipath information of a set of labels", "stops behind its type",
          "type 9 is a label and a mask, RFC 8029 section 3.4.1.1.1",
          holds=lambda c: is_label_set(c.node) and c.attribute in ("multipathLength", "mbz")),
    Known("sub-TLVs behind multipath information",
          "\"Invalid Sub-tlv Length\", reads them at the wrong place",
          "RFC 8029 section 3.4.1 asks for no order, and each sub-TLV has a length of its own",
          holds=lambda c: c.node.behind(is_multipath),
          complaints=lambda n: ["Invalid Sub-tlv Length (claimed 2048, found 8)"]
          if n.behind(is_multipath) else []),
    Known("FEC stack change without a peer's address", "\"Malformed Packet\"",
          "an unspecified peer has an address of no bytes, RFC 8029 section 3.4.1.3",
          holds=lambda c: c.node.within(lambda n: has_no_peer(n) and not n.before),
          complaints=malformed_by(lambda n: has_no_peer(n) and not n.before)),
    Known("sub-TLVs behind a FEC stack change", "\"Malformed Packet\", the rest is lost",
          "a mapping has as many as there are changes, each with the length of its own header,"
          " RFC 8029 section 3.4.1.3",
          holds=lambda c: c.node.behind(is_stack_change),
          complaints=malformed_by(lambda n: is_stack_change(n) and len(n.before) == 1)),
    Known("Interface and Label Stack of address types 3 and 4",
          "right values, but warns of the address type",
          "both are in the table of RFC 8029 section 3.7",
          complaints=lambda n: ["Incorrect address type for TLV?"]
          if n.type.startswith("LspPingIntfAndLabelStackIpv6") else []),
    Known("Pad whose length is no multiple of 4", "takes the alignment for a TLV",
          "a TLV is padded to four bytes, which its length does not count, RFC 8029 section 3",
          complaints=lambda n: ["Error processing TLV: length is 3, should be >= 4"]
          if n.type == "LspPingPadTlv" and n.element["length"] % 4 != 0 else []),
    Known("sub-TLVs of the vendor's private TLV", "shows bytes",
          "what follows the enterprise number is the vendor's to define, RFC 8029 section 3.6",
          holds=lambda c: c.node.type == "LspPingMultiLabelSubTlv"),
]


@dataclass
class Field:
    name: str
    offset: int
    size: int
    show: str
    value: str


class Packet:
    def __init__(self, tree):
        echo = next((p for p in tree.iter("proto") if p.get("name") == "mpls-echo"), None)
        self.echo = []
        if echo is not None:
            start = int(echo.get("pos"))
            self.echo = [self.field(f, start) for f in echo.iter("field")]
        self.all = [self.field(f, 0) for f in tree.iter("field")]
        self.complaints = [f.show for f in self.all if f.name == "_ws.expert.message"]

    @staticmethod
    def field(element, start: int) -> Field:
        return Field(element.get("name").removeprefix("mpls_echo."),
                     int(element.get("pos", 0)) - start, int(element.get("size", 0)),
                     element.get("show", ""), element.get("value", ""))

    def find(self, claim: Claim) -> list:
        """What tshark says at the place of a claim."""
        if claim.where is None:
            return []
        name, place, part = (*claim.where, None)[:3]
        if name in NETWORK_FIELDS:
            return [f.show for f in self.all if f.name == name][place:place + 1]
        offset = claim.node.element.get("offset", 0) + place
        found = [f for f in self.echo if f.name == name and f.offset == offset]
        if part is not None:
            # Several fields may be parts of one in tshark's tree; the bytes decide.
            return ["0x" + f.value[2 * part.start:2 * part.stop] for f in found]
        return [f.show for f in found]


NO_TIME = "no time"
NETWORK = {"src", "dst", "srcPort", "dstPort", "time", "labels"}
NETWORK_FIELDS = {"frame.time_epoch", "ip.src", "ip.dst", "ipv6.src", "ipv6.dst", "udp.srcport",
                  "udp.dstport", "mpls.label", "mpls.exp", "mpls.bottom", "mpls.ttl"}


def network_claims(node: Node) -> list:
    message = node.message
    whole, fraction = message["time"].removesuffix("Z").split(".")
    seconds = calendar.timegm(datetime.datetime.fromisoformat(whole).timetuple())
    claims = [Claim(node, "time", f"{seconds}.{fraction:0<9}", ("frame.time_epoch", 0))]
    if message["src"] is not None:
        family = "ipv6" if ":" in message["src"] else "ip"
        claims += [Claim(node, side, message[side], (f"{family}.{side}", 0))
                   for side in ("src", "dst")]
        claims += [Claim(node, port, message[port], (f"udp.{port.lower()}", 0))
                   for port in ("srcPort", "dstPort")]
    for i, label in enumerate(message["labels"]):
        names = {"label": "mpls.label", "tc": "mpls.exp", "bos": "mpls.bottom", "ttl": "mpls.ttl"}
        claims += [Claim(node, "labels", label[key], (name, i)) for key, name in names.items()]
    return claims


def header_claims(node: Node) -> list:
    attributes = node.element["attributes"]
    claims = [Claim(node, name, attributes[name], where) for name, where in HEADER.items()]
    for name, where in (("Sent", ("timestamp_sent", 16)), ("Rcvd", ("timestamp_rec", 24))):
        seconds, fraction = attributes[f"ts{name}Seconds"], attributes[f"ts{name}mSeconds"]
        claims += [Claim(node, f"ts{name}Seconds", seconds, (*where, slice(0, 4))),
                   Claim(node, f"ts{name}mSeconds", fraction, (*where, slice(4, 8))),
                   Claim(node, f"ts{name}", ntp_text(seconds, fraction), where)]
    return claims


def ntp_text(seconds: int, fraction: int) -> str:
    """As tshark writes a time, which it cuts to nanoseconds."""
    if seconds == 0 and fraction == 0:
        return NO_TIME
    time = datetime.datetime(1900, 1, 1) + datetime.timedelta(seconds=seconds)
    return f"{time:%b} {time.day:2}, {time:%Y %H:%M:%S}.{fraction * 10**9 >> 32:09} UTC"


def element_claims(node: Node) -> list:
    element = node.element
    if node.type not in ELEMENTS:
        raise SystemExit(f"no fields are listed for {node.type}")
    rules = dict(ELEMENTS[node.type])
    if node.type == "LspPingPadTlv":
        padding = ":".join(f"{byte:02x}" for byte in element["attributes"]["padding"].values())
        attributes = element["attributes"] | {"padding": padding}
    else:
        attributes = element.get("attributes", {})
    if element.get("name") in DEPRECATED:
        rules = rules | dict.fromkeys(("reserved",))
    if node.within(lambda n: n.element.get("name") == "ErrorTlv") and node.parent is not None:
        rules["type"] = ("tlv.errored.type", 0)
    values = {"type": element["code"], "length": element["length"]} | attributes
    if unruled := set(attributes) - set(rules) - DERIVED:
        raise SystemExit(f"no fields are listed for {node.type}: {sorted(unruled)}")
    claims = [Claim(node, name, values[name], where) for name, where in rules.items()]
    return claims + label_claims(node) + multipath_claims(node)


def label_claims(node: Node) -> list:
    labels = node.element.get("labels", [])
    claims = []
    names = next((names for kind, names in LABELS.items() if node.type.startswith(kind)), None)
    for i, label in enumerate(labels):
        start = 4 + node.element["length"] - 4 * (len(labels) - i)
        last = label["ttl"] if "ttl" in label else SIGNALING[label["protocol"]]
        claims += [Claim(node, f"labels[{i}].{key}", value, (name, start + place))
                   for key, value, name, place in zip(
                       ("label", "tc", "bos", "last"),
                       (label["label"], label["tc"], label["bos"], last), names, (0, 2, 2, 3))]
    return claims


def multipath_claims(node: Node) -> list:
    multipath = node.element.get("multipath", {})
    if not multipath:
        return []
    attributes = node.element["attributes"]
    in_detailed = node.type == "LspPingMultipathSubTlv"
    start = 8 if in_detailed else 4 + node.element["length"] \
        - 4 * len(node.element["labels"]) - attributes["multipathLength"]
    name = "tlv.ddstlv_map_mp" if in_detailed else "tlv.ds_map_mp"
    claims = [Claim(node, f"addresses[{i}]", address, (f"{name}.ip", start + 4 * i))
              for i, address in enumerate(multipath.get("addresses", []))]
    for i, pair in enumerate(multipath.get("ranges", [])):
        claims += [Claim(node, f"ranges[{i}].first", pair["first"],
                         (f"{name}.ip_low", start + 8 * i)),
                   Claim(node, f"ranges[{i}].last", pair["last"],
                         (f"{name}.ip_high", start + 8 * i + 4))]
    if multipath["type"] == "maskedIpSetMultipath":
        mask = ":".join(f"{byte:02x}" for byte in bytes.fromhex(multipath["mask"]))
        claims = [Claim(node, "base", multipath["base"], (f"{name}.ip", start)),
                  Claim(node, "mask", mask, (f"{name}.mask", start + 4))]
    if not claims and not is_label_set(node):
        raise SystemExit(f"no fields are listed for multipath information of {multipath['type']}")
    return claims


def fields_of(packet: Packet, node: Node) -> list:
    """Named fields that lie in the value of an element."""
    start = node.element.get("offset", 0) + 4
    end = node.element.get("offset", 0) + 4 + node.element.get("length", 0)
    raw = ("", "tlv.value", "tlv.fec.value")
    return [f.name for f in packet.echo
            if start <= f.offset < end and f.name not in raw and not f.name.startswith("_ws.")]


def packets_of(program: str, capture: str) -> list:
    ran = subprocess.run([program, "-n", "-r", capture, "-T", "pdml"], capture_output=True,
                         check=True)
    return [Packet(tree) for tree in ElementTree.fromstring(ran.stdout).iter("packet")]


def judge(report: Report, claim: Claim, packet: Packet) -> None:
    theirs = packet.find(claim)
    if claim.where is None:
        # Nothing is known of a field for it, so there must be none.
        report.judge(claim, lambda c: bool(fields_of(packet, c.node)), "bytes")
    else:
        report.judge(claim, lambda c: bool(theirs) and any(same(c.ours, t) for t in theirs)
                     and (len(theirs) == 1 or c.where[0] == ""), theirs)


def complaints_of(packet: Packet) -> list:
    return packet.complaints


def complaints_expected(message: dict) -> list:
    """A request has a time to live of 1 where IP would carry it on, RFC 8029 section 4.3."""
    is_request = message["message"]["attributes"]["messageType"] == 1
    is_ipv4 = message["src"] and ":" not in message["src"]
    return ["\"Time To Live\" only 1"] if is_request and is_ipv4 else []
