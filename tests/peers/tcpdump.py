"""tcpdump, run on a capture: its lines are taken apart and stand in the order of the elements."""

import datetime
import re
import subprocess

from claims import Claim, Known, Node, Report, same

REVIEWED = "4.99."
LEAST = 900

# What it says of the header.
HEADER = {
    "version": r"LSP-PINGv(\d+), ", "messageType": r"msg-type: .*\((\d+)\), length",
    "replyMode": r"reply-mode: .*\((\d+)\)", "returnCode": r"Return Code: .*\((\d+)\)",
    "returnSubcode": r"Return Subcode: \((\d+)\)", "senderHandle": r"Sender Handle: (0x[0-9a-f]+)",
    "sequenceNumber": r"Sequence: (\d+)", "tsSent": r"Sender Timestamp: (.*) Receiver",
    "tsRcvd": r"Receiver Timestamp: (.*)",
}

ADDRESS = r"([0-9a-f.:]+)"
PREFIX = {"ipPrefix": rf"{ADDRESS}/\d+$", "prefixLen": r"/(\d+)$"}
NEXT_HOP = {"dsIpAddr": rf"Downstream IP: {ADDRESS}"}
INTERFACE = {"dsIntfAddr": rf"Downstream Interface IP: {ADDRESS}"}
INDEX = {"dsIntfId": r"Downstream Interface Index: (0x[0-9a-f]+)"}
MAPPING = NEXT_HOP | {"mtu": r"MTU: (\d+)", "addrType": r"Address-Type: .*\((\d+)\)"}

# What it says of an element besides code and length. An attribute that no line tells is not here.
ELEMENTS = {
    "LspPingLdpIpv4SubTlv": PREFIX,
    "LspPingVpnIpv4SubTlv": PREFIX | {"rd": r"RD: (\d+:\d+) "},
    "LspPingRsvpIpv4SubTlv": {
        "destination": rf"tunnel end-point {ADDRESS}", "senderAddress": rf"tunnel sender {ADDRESS}",
        "lspId": r"lsp-id (0x[0-9a-f]+)", "tunnelId": r"tunnel-id (0x[0-9a-f]+)",
        "extendedTunnelId": rf"extended tunnel-id {ADDRESS}"},
    "LspPingFec128Ipv4SubTlv": {
        "senderAddr": rf"Sender PE: {ADDRESS}", "receiverAddr": rf"Remote PE: {ADDRESS}",
        "pwId": r"PW ID: (0x[0-9a-f]+)", "pwType": r"PW Type: .*\((\d+)\)"},
    "LspPingDownstreamMappingIpv4Tlv": MAPPING | INTERFACE,
    "LspPingDownstreamMappingIpv4UnnumberedTlv": MAPPING | INDEX,
    "LspPingDownstreamMappingIpv6Tlv": MAPPING | INTERFACE,
    "LspPingDownstreamMappingIpv6UnnumberedTlv": MAPPING | INDEX,
}

UNKNOWN_FECS = {
    "LspPingRsvpP2mpIpv4SubTlv": "RFC 6425 section 3.1.1", "LspPingNilFecSubTlv":
    "RFC 8029 section 3.2.17", "LspPingP2mpFecStackSubTlv": "RFC 6425 section 3.1.2",
    "LspPingFec129Ipv4SubTlv": "RFC 8029 section 3.2.10",
    "LspPingSrIpv4SubTlv": "RFC 8287 section 5.1"}
UNKNOWN_TLVS = {
    "LspPingNodeAddrSubTlv": "RFC 6425 section 3.2", "LspPingEchoJitterTlv":
    "RFC 6425 section 3.3", "LspPingDdmap": "RFC 8029 section 3.4",
    "LspPingVeloraVendorPrivateTlv": "RFC 8029 section 3.6"}
NAMED_TLVS = {
    "LspPingPadTlv": "RFC 8029 section 3.5", "LspPingIntfAndLabelStack":
    "RFC 8029 section 3.7", "LspPingErroredTlvsTlv": "RFC 8029 section 3.8",
    "LspPingReplyTosTlv": "RFC 8029 section 3.9"}

# A claim that is made for nothing but to see whether the decoder still knows no more.
MEANING = "meaning"


def starts(node: Node, names) -> bool:
    return any(node.type.startswith(name) for name in names)


def references(table: dict) -> str:
    return ", ".join(dict.fromkeys(table.values()))


KNOWN = [
    Known("messages in an associated channel", "shows bytes",
          "label 13 says that a channel follows, RFC 5586 section 4: an IP packet or the message"
          " alone, RFC 6426 sections 3.2 and 3.3",
          holds=lambda c: any(label["label"] == 13 for label in c.node.message["labels"])
          and c.attribute != "labels"),
    Known("the second FEC of a stack and all behind it", "reads them four bytes early",
          "the length of a sub-TLV does not count its header of four bytes, RFC 8029 section 3",
          holds=lambda c: in_fec_stack(c.node) and bool(c.node.before)),
    Known("point-to-multipoint, multicast LDP, FEC 129, Nil and segment routing FECs",
          "\"Unknown subTLV\" and bytes", references(UNKNOWN_FECS),
          holds=lambda c: c.attribute == MEANING and starts(c.node, UNKNOWN_FECS)),
    Known("Downstream Detailed Mapping, P2MP responder, jitter and vendor TLVs",
          "\"Unknown TLV\" and bytes", references(UNKNOWN_TLVS),
          holds=lambda c: c.attribute == MEANING and starts(c.node, UNKNOWN_TLVS)),
    Known("Pad, Interface and Label Stack, Errored TLVs and Reply TOS",
          "name, length and bytes", references(NAMED_TLVS),
          holds=lambda c: c.attribute == MEANING and starts(c.node, NAMED_TLVS)),
    Known("multipath information and labels of a Downstream Mapping", "shows bytes",
          "RFC 8029 sections 3.4.1.1.1 and A.2",
          holds=lambda c: c.attribute == MEANING
          and c.node.type.startswith("LspPingDownstreamMapping")),
]

NETWORK = {"src", "dst", "srcPort", "dstPort", "labels"}


def in_fec_stack(node: Node) -> bool:
    return node.parent is not None and node.parent.type == "TargetFecStack"


class Packet:
    def __init__(self, text: str):
        self.text = text
        self.tlvs = []  # (code, length, lines, sub-TLVs of the same shape)
        for line in text.split("\n"):
            if found := re.match(r"\t  \S.* TLV \((\d+)\), length: (\d+)$", line):
                self.tlvs.append((*found.groups(), [], []))
            elif found := re.match(r"\t    \S.* subTLV \((\d+)\), length: (\d+)$", line):
                self.tlvs[-1][3].append((*found.groups(), [], []))
            elif self.tlvs:
                is_detail = line.startswith("\t      ") and self.tlvs[-1][3]
                (self.tlvs[-1][3][-1] if is_detail else self.tlvs[-1])[2].append(line.strip())

    def element(self, node: Node):
        """What stands at the place of an element; elements in it are told of FEC stacks only."""
        siblings = self.tlvs
        if node.parent is not None:
            parent = self.element(node.parent) if in_fec_stack(node) else None
            siblings = parent[3] if parent else []
        place = len(node.before)
        return siblings[place] if place < len(siblings) else None

    def find(self, claim: Claim) -> list:
        if claim.attribute in NETWORK or claim.node.is_header:
            return re.findall(claim.where, self.text, re.M)
        told = self.element(claim.node)
        if told is None:
            return []
        code, length, lines, _ = told
        if claim.attribute == "type":
            return [code]
        if claim.attribute == "length":
            return [length]
        if claim.attribute == MEANING:
            # Lines of bytes have no meaning; neither has what is known of other attributes.
            told_of = ELEMENTS.get(claim.node.type, {}).values()
            return [line for line in lines if line and not line.startswith("0x")
                    and line != "TLV is too short"
                    and not any(re.search(pattern, line) for pattern in told_of)]
        return [t for line in lines for t in re.findall(claim.where, line)]


def network_claims(node: Node) -> list:
    message = node.message
    claims = []
    if message["src"] is not None:
        for i, name in enumerate(("src", "srcPort", "dst", "dstPort")):
            groups = [g if j == i else g.replace("(", "(?:")
                      for j, g in enumerate((ADDRESS, r"(\d+)", ADDRESS, r"(\d+)"))]
            claims.append(Claim(node, name, message[name],
                                r"(?:^|\s){}\.{} > {}\.{}: ".format(*groups)))
    stack = "".join(f"(label {label['label']}, tc {label['tc']}, "
                    f"{'[S], ' if label['bos'] else ''}ttl {label['ttl']})"
                    for label in message["labels"])
    if stack:
        claims.append(Claim(node, "labels", stack, None))
    return claims


def header_claims(node: Node) -> list:
    attributes = node.element["attributes"]
    values = attributes | {f"ts{name}": time_text(attributes[f"ts{name}Seconds"],
                                                  attributes[f"ts{name}mSeconds"])
                           for name in ("Sent", "Rcvd")}
    return [Claim(node, name, values[name], where) for name, where in HEADER.items()]


def time_text(seconds: int, fraction: int) -> str:
    """As tcpdump writes a time, which it cuts to nanoseconds."""
    if seconds == 0 and fraction == 0:
        return "no timestamp"
    time = datetime.datetime(1900, 1, 1) + datetime.timedelta(seconds=seconds)
    return f"{seconds}.{fraction * 10**9 >> 32:09} ({time.isoformat()}Z)"


def element_claims(node: Node) -> list:
    if node.parent is not None and not in_fec_stack(node):
        return []  # all other elements in elements are among the bytes of what contains them
    element = node.element
    claims = [Claim(node, "type", element["code"]), Claim(node, "length", element["length"])]
    for name, where in ELEMENTS.get(node.type, {}).items():
        value = element["attributes"][name]
        if name == "rd":
            value = f"{value >> 32 & 0xffff}:{value & 0xffffffff}"  # type 0, RFC 4364 section 4.2
        claims.append(Claim(node, name, value, where))
    if starts(node, [*UNKNOWN_FECS, *UNKNOWN_TLVS, *NAMED_TLVS]) or "labels" in element:
        claims.append(Claim(node, MEANING, node.type))
    elif node.type not in ELEMENTS and node.type != "TargetFecStack" and not node.before:
        raise SystemExit(f"no lines are listed for {node.type}")
    return claims


def labels_of(packet: Packet) -> str:
    entries = re.findall(r"\(label (\d+)(?: \([^)]*\))?(, [^)]*)\)", packet.text)
    return "".join(f"(label {label}{rest})" for label, rest in entries)


def packets_of(program: str, capture: str) -> list:
    ran = subprocess.run([program, "-n", "-r", capture, "-vvv"], capture_output=True, text=True,
                         check=True)
    return [Packet(text) for text in re.split(r"\n(?=\d\d:\d\d:\d\d\.)", ran.stdout)]


def judge(report: Report, claim: Claim, packet: Packet) -> None:
    theirs = [labels_of(packet)] if claim.attribute == "labels" else packet.find(claim)
    if claim.attribute == MEANING:
        report.judge(claim, lambda c: bool(theirs), theirs)
    else:
        report.judge(claim, lambda c: len(theirs) == 1 and same(c.ours, theirs[0]), theirs)


def complaints_of(packet: Packet) -> list:
    return re.findall(r"bad udp cksum|\[bad [^]]*\]|invalid", packet.text)


def complaints_expected(_message: dict) -> list:
    return []
