"""What lspping says of a capture, as claims that another decoder agrees with or not."""

import ipaddress
import json
import subprocess
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any, Callable, Optional


@dataclass
class Node:
    """An element, and how it stands in its message."""
    element: dict
    message: dict
    parent: Optional["Node"] = None
    before: list = field(default_factory=list)  # elements that precede it in what contains it

    @property
    def type(self) -> str:
        """The view's name without namespace, or the element's name where no view is laid."""
        return self.element.get("type", self.element.get("name", "")).removeprefix("LspPing::")

    @property
    def is_header(self) -> bool:
        return self.type == "LspPingHdr"

    def within(self, holds: Callable[["Node"], bool]) -> bool:
        """Whether something holds of this element or of one that contains it."""
        return holds(self) or (self.parent is not None and self.parent.within(holds))

    def behind(self, holds: Callable[["Node"], bool]) -> bool:
        """Whether it, or what contains it, stands behind an element of which something holds."""
        return self.within(lambda node: any(holds(other) for other in node.before))


@dataclass
class Claim:
    node: Node
    attribute: str
    ours: Any
    where: Any = None  # what the other decoder calls it, and where; each decoder has its own form

    def __str__(self) -> str:
        message = self.node.message
        return f"{message['place']}, offset {self.node.element.get('offset', 0)}, " \
               f"{self.node.type}.{self.attribute}: {self.ours!r}"


@dataclass
class Known:
    """Where the other decoder is known not to agree, and why we are right."""
    element: str
    theirs: str
    why: str
    holds: Callable[[Claim], bool] = lambda claim: False
    # The other decoder's complaints about a node; they are none of ours.
    complaints: Callable[[Node], list] = lambda node: []


def decode(lspping: str, capture: str) -> list:
    """The messages of a capture as lspping's JSON has them."""
    ran = subprocess.run([lspping, "decode", "--json", capture], capture_output=True, check=True)
    messages = [json.loads(line) for line in ran.stdout.splitlines()]
    for message in messages:
        message["place"] = f"{Path(capture).name}, packet {message['packet']}"
    return messages


def nodes_of(message: dict) -> list:
    """The header, then every element in the order of the bytes."""
    found = [Node(message["message"], message)]

    def walk(elements, parent):
        before = []
        for element in elements:
            node = Node(element, message, parent, list(before))
            found.append(node)
            walk(element.get("subTlvs", []), node)
            before.append(node)

    walk(message["tlvs"], None)
    return found


def same(ours: Any, theirs: str) -> bool:
    """Whether a value of our JSON and the text of another decoder mean the same."""
    if isinstance(ours, bool):
        return theirs in (("1", "True") if ours else ("0", "False"))
    if isinstance(ours, int):
        return number(theirs) == ours
    if is_address(ours):
        address = ipaddress.ip_address(ours)
        try:
            return ipaddress.ip_address(theirs) == address
        except ValueError:
            return number(theirs) == int(address)
    return str(ours) == theirs


def number(text: str) -> Optional[int]:
    """Decimal, hexadecimal behind 0x, or bytes with colons between them."""
    try:
        return int(text.replace(":", ""), 16) if ":" in text else int(text, 0)
    except ValueError:
        return None


def is_address(value: Any) -> bool:
    try:
        ipaddress.ip_address(value)
        return isinstance(value, str)
    except ValueError:
        return False


def another(value: Any) -> Any:
    """A value that is not this one, to see that a comparison would notice."""
    if isinstance(value, bool):
        return not value
    if isinstance(value, int):
        return value ^ 1
    if is_address(value):
        return str(ipaddress.ip_address(value) + 1)
    return value + "x"


class Report:
    """Judges every claim: it is agreed to, or a row of the known says why not."""

    def __init__(self, decoder: str, known: list, reviewed: bool):
        self.decoder = decoder
        self.known = known
        self.reviewed = reviewed  # whether `known` was written for this release of the decoder
        self.agreed = 0
        self.failures = []
        self.met = {}  # (row, place, offset) -> whether the decoder really differs there

    def judge(self, claim: Claim, agrees: Callable[[Claim], bool], theirs: Any) -> None:
        row = next((i for i, known in enumerate(self.known) if known.holds(claim)), None)
        agreed = agrees(claim)
        if row is not None:
            key = (row, claim.node.message["place"], claim.node.element.get("offset", 0))
            self.met[key] = self.met.get(key, False) or not agreed
        elif not agreed:
            self.failures.append(f"{claim}, but {self.decoder} says {theirs}")
        else:
            self.agreed += 1
            changed = Claim(claim.node, claim.attribute, another(claim.ours), claim.where)
            if agrees(changed):
                self.failures.append(f"{claim}: the comparison takes {changed.ours!r} as well")

    def complained(self, message: dict, complaints: list, expected: list) -> None:
        """What the decoder complained of has to be what is expected of it."""
        for node in nodes_of(message):
            for i, known in enumerate(self.known):
                if of_node := known.complaints(node):
                    expected = expected + of_node
                    self.met[(i, message["place"], "complaint")] = True
        if self.reviewed and sorted(complaints) != sorted(expected):
            self.failures.append(f"{message['place']}: {self.decoder} complains of "
                                 f"{sorted(complaints)}, expected {sorted(expected)}")

    def finish(self, least: int) -> int:
        """Tells what was found; the answer is the exit status."""
        if self.agreed < least:
            self.failures.append(f"only {self.agreed} fields agree; at least {least} did")
        if self.reviewed:
            for i, known in enumerate(self.known):
                places = {key: differs for key, differs in self.met.items() if key[0] == i}
                if not places:
                    self.failures.append(f"nothing in the captures is: {known.element}")
                for (_, place, offset), differs in places.items():
                    if not differs:
                        self.failures.append(f"{place}, offset {offset}: {self.decoder} "
                                             f"agrees now; listed as not: {known.element}")
        for failure in self.failures:
            print(failure)
        print(f"{self.agreed} fields agree with {self.decoder}; "
              f"{len(self.met)} elements are known to differ; {len(self.failures)} failures")
        if not self.reviewed:
            print("another release than the one reviewed: that the known differ is not checked")
        return 1 if self.failures else 0
