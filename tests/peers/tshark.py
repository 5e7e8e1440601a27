"""tshark, run on a capture: each field is found by its name and the place of its bytes."""

import calendar
import datetime
import subprocess
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass
from typing import Any, Callable, Optional

from claims import Claim, Known, Node, Report, same
from tshark_fields import DEPRECATED, DERIVED, ELEMENTS, FEC, HEADER, LABELS, MAPPING_SUB, \
    SIGNALING, TLV, UNKNOWN

REVIEWED = "4.0."
LEAST = 4000

def unnumbered_ipv6(node: Node) -> bool:
    return node.type == "LspPingDownstreamMappingIpv6UnnumberedTlv"


def malformed_by(holds: Callable[[Node], bool]) -> Callable[[Node], list]:
    return lambda node: ["Malformed Packet (Exception occurred)"] if holds(node) else []


def is_unknown(node: Node) -> bool:
    return node.type.startswith(tuple(UNKNOWN))


def has_reading(node: Node) -> bool:
    return "reading" in node.element


def is_proxy_message(node: Node) -> bool:
    return node.message["message"]["attributes"]["messageType"] in (3, 4)


def is_session(node: Node) -> bool:
    return node.type == "LspPingRsvpP2mpIpv6SubTlv"


def is_index(node: Node) -> bool:
    return node.type in ("LspPingLocalIntfIndexSubTlv", "LspPingRemoteIntfIndexSubTlv")


def is_short_mapping(node: Node) -> bool:
    return node.type.endswith("NonIpTlv") and has_reading(node)


def is_padded_order(node: Node) -> bool:
    return node.type == "LspPingReplyModeOrderTlv" and has_reading(node)


def is_nil(node: Node) -> bool:
    return node.type == "LspPingNilFecSubTlv"


def is_stack_change(node: Node) -> bool:
    return node.type.startswith("LspPingFecStackChange")


def is_multipath(node: Node) -> bool:
    return node.type == "LspPingMultipathSubTlv"


def is_label_set(node: Node) -> bool:
    return node.element.get("multipath", {}).get("type") == "maskedLabelSetMultipath"


def is_set_of_both(node: Node) -> bool:
    return node.element.get("multipath", {}).get("type") == "ipAndLabelSetMultipath"


def has_addresses(node: Node) -> bool:
    return is_multipath(node) and len(node.element["multipath"].get("addresses", [])) > 1


def has_no_peer(node: Node) -> bool:
    return node.type == "LspPingFecStackChangeUnspecifiedSubTlv"


def is_padded_tlv(node: Node) -> bool:
    return node.parent is None and not node.is_header and node.element["length"] % 4 != 0 \
        and node.element["totalLength"] % 4 == 0 and not is_padded_order(node)


KNOWN = [
    Known("proxy messages, of the types 3 and 4", "takes the time stamps for TLVs",
          "they have the header of an echo message, RFC 7555 section 3",
          holds=lambda c: is_proxy_message(c.node) and c.attribute not in NETWORK
          and not (c.node.is_header and c.attribute in HEADER and c.attribute != "globalFlags")),
    Known("elements that came later, and what stands in them", "shows bytes",
          ", ".join(dict.fromkeys(UNKNOWN.values())),
          holds=lambda c: c.where is None and c.node.within(is_unknown)),
    Known("RSVP P2MP IPv6 session",
          "wants a length of 56, and with that says \"Malformed Packet\" where 44 bytes are",
          "RFC 6425 section 3.1.1.2 draws 44 bytes",
          holds=lambda c: is_session(c.node)
          and (c.where is None or has_reading(c.node)),
          complaints=lambda n: malformed_by(has_reading)(n)
          or ["Invalid FEC Sub-TLV Length (claimed 44, should be 56)"] if is_session(n) else []),
    Known("FEC 128 pseudowire over IPv6", "reads an id of two bytes, then all too early",
          "an id has four bytes, RFC 6829 section 3.1",
          holds=lambda c: c.node.type == "LspPingFec128Ipv6SubTlv"
          and c.attribute in ("pwId", "pwType")),
    Known("mappings of address type 5 with the stated length",
          "takes the last four bytes for a TLV",
          "RFC 6426 section 2.1.1 states a length that is by four less than it draws",
          holds=lambda c: c.node.within(is_short_mapping)
          and (c.node.parent is not None or c.attribute.startswith("labels")
               or c.attribute == "length" and "length" not in c.node.element["attributes"]),
          complaints=lambda n: ["Invalid Sub-tlv Length (claimed 30, found 28)"]
          if is_set_of_both(n) and has_reading(n.parent) else []),
    Known("interface indexes of a mapping", "reads them at the wrong place",
          "RFC 8611 sections 8 and 9",
          holds=lambda c: is_index(c.node),
          complaints=lambda n: ["Invalid Sub-tlv Length (claimed 21, found 4)"]
          if is_index(n) and not n.before and not has_reading(n.parent) else []),
    Known("multipath information of addresses and labels", "\"Malformed Packet\"",
          "type 10 is both and their lengths, RFC 8012 section 6",
          holds=lambda c: is_set_of_both(c.node),
          complaints=malformed_by(lambda n: is_set_of_both(n) and not has_reading(n.parent))),
    Known("P2MP responders behind the first one", "does not show them",
          "there may be several, of which the first counts, RFC 6425 section 3.2",
          holds=lambda c: c.node.type.startswith("LspPingResponder") and bool(c.node.before)),
    Known("TLVs behind a Reply Mode Order that is padded", "takes the padding for a TLV",
          "RFC 7737 section 3.2 asks for no padding, RFC 8029 section 3 for some",
          holds=lambda c: c.node.behind(is_padded_order)),
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
    Known("TLVs whose length is no multiple of 4", "takes the alignment for a TLV",
          "a TLV is padded to four bytes, which its length does not count, RFC 8029 section 3",
          complaints=lambda n: [f"Error processing TLV: length is {-n.element['length'] % 4},"
                                " should be >= 4"] if is_padded_tlv(n) else []),
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
        found = [f for f in self.echo if f.name in name.split("|") and f.offset == offset]
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


def is_errored(node: Node) -> bool:
    return node.parent is not None and node.parent.element["name"] == "ErrorTlv"


def unknown_claims(node: Node) -> list:
    """Of the outermost one that is not known, there are fields for its header."""
    element = node.element
    attributes = element.get("attributes", {})
    rules = dict.fromkeys(["type", "length", *(set(attributes) - DERIVED)])
    if node.parent is None or not node.parent.within(is_unknown):
        rules |= TLV if node.parent is None or is_errored(node) else FEC
    if is_errored(node):
        rules["type"] = ("tlv.errored.type", 0)
    values = {"type": element["code"], "length": element["length"]} | attributes
    claims = [Claim(node, name, values[name], where) for name, where in rules.items()]
    # A claim for all the value, where nothing else is told of it.
    return claims + [Claim(node, "value", element.get("text", ""))]


def element_claims(node: Node) -> list:
    element = node.element
    if node.within(is_unknown):
        return unknown_claims(node)
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
    if is_errored(node):
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
    if not claims and not is_label_set(node) and not is_set_of_both(node):
        raise SystemExit(f"no fields are listed for multipath information of {multipath['type']}")
    return claims


def fields_of(packet: Packet, node: Node) -> list:
    """Named fields that lie in the value of an element."""
    start = node.element.get("offset", 0) + 4
    end = node.element.get("offset", 0) + 4 + node.element.get("length", 0)
    raw = ("", "tlv.value", "tlv.fec.value", "padding")
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
