#!/usr/bin/env python3
"""Measures what needs whole processes: instructions, loading, and decoding a long capture. Prints
lines `key ours peer`, which table.py reads; what is missing is told on standard error and left out.

    processes.py BUILD-FOLDER
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

MESSAGES = 200000
OPENINGS = 41
DECODINGS = 5


def tell(key, ours, peer):
    print(key, ours, peer, flush=True)


def missing(*programs):
    absent = [p for p in programs if not (shutil.which(p) or os.path.exists(p))]
    for program in absent:
        print(f"processes.py: {program} is missing, so its rows are left out", file=sys.stderr)
    return absent


def callgrind(folder, command, functions):
    """Instructions inside of each function, what it calls included, and what ran in all of them."""
    counts, called = {}, set()
    for function in functions:
        path = os.path.join(folder, "callgrind")
        subprocess.run(["valgrind", "-q", "--tool=callgrind", f"--callgrind-out-file={path}",
                        "--compress-strings=no", f"--toggle-collect={function}*", *command],
                       check=True, stdout=subprocess.DEVNULL)
        with open(path) as file:
            text = file.read()
        counts[function] = int(re.search(r"^(?:summary|totals): (\d+)", text, re.M).group(1))
        if counts[function] == 0:
            raise RuntimeError(f"callgrind met no {function}")
        called.update(re.findall(r"^c?fn=(.*)$", text, re.M))
    return counts, called


def header_instructions(build, folder):
    names = ["Bench::headerThroughView(unsigned char const", "Bench::headerByHand(unsigned char const"]
    counts, _ = callgrind(folder, [f"{build}/bench/headerReads"], names)
    tell("headerInstructions", counts[names[0]], counts[names[1]])


def message_instructions(build, folder):
    names = [f"Bench::{what}{how}" for what in ("read", "write") for how in ("ThroughLibrary", "ByHand")]
    counts, _ = callgrind(folder, [f"{build}/bench/messagesOnce"], names)
    for key, ours, peer in (("messageReadInstructions", *names[:2]),
                            ("messageWriteInstructions", *names[2:])):
        tell(key, counts[ours], counts[peer])


def registration(build, folder):
    names = ["LspPing::(anonymous namespace)::registerLspPingHdr",
             "LspPing::(anonymous namespace)::registerLspPingTypes"]
    counts, called = callgrind(folder, [f"{build}/bench/openOnce", f"{build}/lib/libLspPing.so"],
                               names)
    heap = [c for c in called if re.match(r"(malloc|calloc|realloc|operator new)", c)]
    tell("openInstructions", sum(counts.values()), 1)
    tell("openHeap", len(heap), 1)


def opening(build):
    def once(library):
        return subprocess.run([f"{build}/bench/openOnce", library], check=True,
                              capture_output=True, text=True).stdout.strip()
    for _ in range(OPENINGS):
        tell("open", once(f"{build}/lib/libLspPing.so"), once(f"{build}/bench/libEmptyObject.so"))


def decoding(build, folder):
    capture = os.path.join(folder, "many.pcap")
    subprocess.run([f"{build}/bench/manyMessages", capture, str(MESSAGES)], check=True)

    def run(command, accepted=(0,)):
        start = time.monotonic()
        with open(os.path.join(folder, "out"), "wb") as out:
            process = subprocess.Popen(command, stdout=out, stderr=subprocess.DEVNULL)
            _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode not in accepted:
            raise RuntimeError(f"{command[0]} ended with {process.returncode}")
        return time.monotonic() - start, usage.ru_maxrss / 1024, usage.ru_utime + usage.ru_stime

    lspping = f"{build}/bin/lspping"
    peaks = []
    for i in range(DECODINGS):
        ours, peak, _ = run([lspping, "decode", capture])
        peaks.append(peak)
        if not missing("tcpdump"):
            tell("decodeText", ours, run(["tcpdump", "-nr", capture, "-vvv"])[0])
        ours, peak, _ = run([lspping, "decode", "--json", capture])
        peaks.append(peak)
        if i < 2 and not missing("tshark"):
            tell("decodeJson", ours, run(["tshark", "-r", capture, "-T", "json"])[0])
    tell("decodeMemory", max(peaks), 1)


def main(build):
    with tempfile.TemporaryDirectory() as folder:
        if not missing("valgrind"):
            header_instructions(build, folder)
            message_instructions(build, folder)
            registration(build, folder)
        opening(build)
        if not missing(f"{build}/bin/lspping", f"{build}/bench/manyMessages"):
            decoding(build, folder)


if __name__ == "__main__":
    main(sys.argv[1])
