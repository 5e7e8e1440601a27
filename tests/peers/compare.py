#!/usr/bin/env python3
"""Compares lspping with an independent decoder over captures.

compare.py tshark PROGRAM LSPPING CAPTURE...   field by field; 1 where one does not agree
compare.py tcpdump PROGRAM LSPPING CAPTURE...
compare.py table [DOCUMENT]                    the list of known differences, or whether it has it
"""

import subprocess
import sys
from pathlib import Path

import tcpdump
import tshark
from claims import Report, decode, nodes_of

DECODERS = {"tshark": tshark, "tcpdump": tcpdump}


def compare_capture(report: Report, decoder, program: str, lspping: str, capture: str) -> None:
    packets = decoder.packets_of(program, capture)
    messages = decode(lspping, capture)
    if [m["packet"] for m in messages] != list(range(1, len(packets) + 1)):
        report.failures.append(f"{capture}: {len(packets)} packets, but not each is a message")
    for message in messages:
        packet = packets[message["packet"] - 1]
        for node in nodes_of(message):
            claims = decoder.network_claims(node) + decoder.header_claims(node) \
                if node.is_header else decoder.element_claims(node)
            for claim in claims:
                decoder.judge(report, claim, packet)
        report.complained(message, decoder.complaints_of(packet),
                          decoder.complaints_expected(message))


def compare(name: str, program: str, lspping: str, captures: list) -> int:
    decoder = DECODERS[name]
    version = subprocess.run([program, "--version"], capture_output=True, text=True, check=True)
    release = (version.stdout + version.stderr).split()[2]
    report = Report(name, decoder.KNOWN, release.startswith(decoder.REVIEWED))
    for capture in captures:
        compare_capture(report, decoder, program, lspping, capture)
    return report.finish(decoder.LEAST)


def table(decoder) -> str:
    rows = [f"| {known.element} | {known.theirs} | {known.why} |" for known in decoder.KNOWN]
    return "\n".join(["| Element | What it does | Why we differ |", "|---|---|---|", *rows]) + "\n"


def check_table(document: str) -> int:
    text = Path(document).read_text(encoding="utf-8")
    missing = [name for name, decoder in DECODERS.items()
               if f"## {name}\n\n{table(decoder)}" not in text]
    for name in missing:
        print(f"{document} has not the table of {name}, which is:\n\n{table(DECODERS[name])}")
    return 1 if missing else 0


def main(arguments: list) -> int:
    match arguments:
        case ["tshark" | "tcpdump" as name, program, lspping, _, *_]:
            return compare(name, program, lspping, arguments[3:])
        case ["table"]:
            for name, decoder in DECODERS.items():
                print(f"## {name}\n\n{table(decoder)}")
            return 0
        case ["table", document]:
            return check_table(document)
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
