#!/usr/bin/env python3
"""Prints the table of ratios from Google Benchmark's JSON files and from `key ours peer` lines.

    table.py FILE...
"""

import json
import statistics
import sys

# One row: key, operation, comparator, ratio to reach (None: for comparison only).
ROWS = [
    ("headerFields", "read the 12 header fields through the view", "memcpy + byte swap", 1.05),
    ("headerInstructions", "the same, instructions (callgrind)", "memcpy + byte swap", 1.00),
    ("walk", "walk TLVs and sub-TLVs, bounds checked", "pointer loop", 1.15),
    ("messageRead", "read a whole reply, look at every element", "pointer loop", 1.25),
    ("messageReadInstructions", "the same, instructions (callgrind)", "pointer loop", None),
    ("messageWrite", "write a whole reply", "stores into the bytes", 1.25),
    ("messageWriteInstructions", "the same, instructions (callgrind)", "stores into the bytes", None),
    ("parser", "create and destroy a parser, one thread", "boost::pool", 1.5),
    ("parserTwoThreads", "the same on two threads at once", "jemalloc", 0.7),
    ("handle", "copy and drop an Orlo::Ptr, one thread", "boost::intrusive_ptr, plain", 1.3),
    ("handleThreads", "the same with threads", "boost::intrusive_ptr, atomic", 1.1),
    ("readById", "read an attribute by id", "protobuf reflection", 0.4),
    ("readByIdKnown", "the same", "the same, field looked up before", None),
    ("readByName", "read an attribute by name", "protobuf reflection", 0.15),
    ("writeById", "write an attribute by id", "protobuf reflection", 0.5),
    ("typeByName", "find a type by name", "std::unordered_map", 0.6),
    ("enumeratorName", "enumerator to name", "static array", 1.1),
    ("enumeratorOfName", "name to enumerator, 24 of them", "std::unordered_map", 0.5),
    ("headerText", "stringValue() of the echo header", "{fmt}, compiled format", 1.0),
    ("recordText", "generic text of a small record (NtpTimeU64)", "protobuf TextFormat", 0.15),
    ("recordParse", "reading it back", "protobuf TextFormat", 0.10),
    ("fecText", "generic text of a large one (FecInfo)", "protobuf TextFormat", 0.15),
    ("fecParse", "reading it back", "protobuf TextFormat", 0.10),
    ("open", "dlopen of the library, fresh process", "an empty shared object", 2.5),
    ("openHeap", "heap calls of registration at load", "(a count)", 0),
    ("openInstructions", "instructions of registration at load", "(a count)", 1000),
    ("decodeText", "lspping decode, text", "tcpdump -nr -vvv", 1.0),
    ("decodeJson", "lspping decode --json", "tshark -T json", 0.05),
    ("decodeMemory", "peak memory of lspping decode, MiB", "(a count)", 16),
]


def read_json(path, times):
    with open(path) as file:
        for run in json.load(file)["benchmarks"]:
            if run["run_type"] == "iteration":
                key, side = run["name"].split("/")[:2]
                # Of several threads the slowest decides: real time; of one its own time counts.
                unit = "real_time" if run["threads"] > 1 else "cpu_time"
                times.setdefault((key, side), []).append(run[unit])


def read_lines(path, times):
    with open(path) as file:
        for line in file:
            key, ours, peer = line.split()
            times.setdefault((key, "ours"), []).append(float(ours))
            times.setdefault((key, "peer"), []).append(float(peer))


def main(paths):
    times = {}
    for path in paths:
        (read_json if path.endswith(".json") else read_lines)(path, times)

    missed = 0
    line = "{:44} {:33} {:>9} {:>8} {:>8}  {}"
    print(line.format("operation", "comparator", "measured", "at best", "to reach", ""))
    for key, operation, comparator, goal in ROWS:
        ours, peer = times.get((key, "ours")), times.get((key, "peer"))
        if not ours:
            print(line.format(operation, comparator, "-", "-", goal or "", "not measured"))
            continue
        ratio = statistics.median(ours) / statistics.median(peer)
        best = min(ours) / min(peer)
        verdict = "" if goal is None else "met" if ratio <= goal else "MISSED"
        missed += verdict == "MISSED"
        print(line.format(operation, comparator, f"{ratio:.3g}", f"{best:.3g}",
                          "" if goal is None else f"{goal:g}", verdict))
    print(f"\n{missed} of the goals missed." if missed else "\nNo measured goal was missed.")


if __name__ == "__main__":
    main(sys.argv[1:])
