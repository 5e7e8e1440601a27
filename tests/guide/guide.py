#!/usr/bin/env python3
"""Does what docs/adding-a-tlv.md says, in a copy of the tree.

   guide.py follow SOURCE OPTION...       builds the copy and compares what the guide shows
   guide.py selfCheck SOURCE OPTION...    holds that a damaged guide is noticed

The options are those that CMake configures the copy with. Each block of the guide has a comment
above it that says where it belongs:

   <!-- PATH: the file -->                 the block is the whole file
   <!-- PATH: at the end of NAME -->       one more entry of a list or an enumeration
   <!-- PATH: at the end of namespace N -->
   <!-- run -->                            commands behind "$ ", and what they print
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile

GUIDE = "docs/adding-a-tlv.md"
INPUTS = ["CMakeLists.txt", "MplsUtils", "cmake", "tools", "tests"]
BLOCK = re.compile(r"((?:<!-- (?P<where>.*?) -->\n)?)^```\w*\n(?P<text>.*?)^```$", re.M | re.S)


class Wrong(Exception):
    """What the guide says is not so."""


def run(command, **options):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, check=False, **options)
    if done.returncode != 0:
        raise Wrong(f"{' '.join(command)}\n{done.stdout}")
    return done.stdout


def blocks(guide):
    found = [(match["where"], match["text"]) for match in BLOCK.finditer(guide)]
    if len(found) * 2 != len(re.findall("^```", guide, re.M)):
        raise Wrong("a block has no end")
    for where, text in found:
        if where is None:
            raise Wrong(f"nothing says where this block belongs:\n{text}")
    return found


def inserted(text, name, block):
    """The text with one more entry, or with lines before a namespace's end."""
    if name.startswith("namespace "):
        begin, end, comma = "", f"\n}} // {name}\n", ""
    else:
        begin, comma = rf"(?:using {name} =|KIV_ENUMERATION\( {name},)", ","
        end = r"\s*(?:>;|\);)"
    match = re.search(f"{begin}.*?(?P<end>{end})", text, re.S)
    if match is None:
        raise Wrong(f"there is no {name}")
    at = match.start("end")
    line = text.rfind("\n", 0, at) + 1
    comment = text.find(" //", line, at) if comma else -1
    entry = at if comment < 0 else comment
    return text[:entry] + comma + text[entry:at] + "\n" + block.rstrip("\n") + text[at:]


def apply(guide, tree):
    for where, text in blocks(guide):
        if where == "run":
            continue
        path, _, place = where.partition(": ")
        path = os.path.join(tree, path)
        if place == "the file":
            if os.path.exists(path):
                raise Wrong(f"{path} is there already")
            result = text
        elif place.startswith("at the end of "):
            with open(path, encoding="utf-8") as file:
                result = inserted(file.read(), place.removeprefix("at the end of "), text)
        else:
            raise Wrong(f"what does '{where}' mean?")
        with open(path, "w", encoding="utf-8") as file:
            file.write(result)


def compareRuns(guide, tree, build):
    runs = [text for where, text in blocks(guide) if where == "run"]
    if not runs:
        raise Wrong("the guide shows no run")
    path = os.path.join(build, "bin") + os.pathsep + os.environ["PATH"]
    for text in runs:
        for command, expected in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", text, re.M):
            name = command.removeprefix("cat ")
            if name != command:
                with open(os.path.join(tree, name), "w", encoding="utf-8") as file:
                    file.write(expected)
                continue
            actual = run(["bash", "-o", "pipefail", "-c", command], cwd=tree,
                         env={**os.environ, "PATH": path})
            if actual != expected:
                raise Wrong(f"{command}\nprints\n{actual}but the guide shows\n{expected}")


class Tree:
    """A copy of the sources that goes with the object."""

    def __init__(self, source, options):
        self.source = source
        self.folder = tempfile.TemporaryDirectory(prefix="lspping.")
        self.path = os.path.join(self.folder.name, "tree")
        self.build = os.path.join(self.folder.name, "build")
        self.options = options
        # The compiler's cache finds in the next run what it kept in this one.
        os.environ.update(CCACHE_BASEDIR=self.folder.name, CCACHE_NOHASHDIR="1")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.folder.cleanup()

    def follow(self, guide):
        """Makes the copy anew and configures it."""
        shutil.rmtree(self.path, ignore_errors=True)
        os.mkdir(self.path)
        for name in INPUTS:
            place = os.path.join(self.source, name)
            copy = shutil.copytree if os.path.isdir(place) else shutil.copy
            copy(place, os.path.join(self.path, name))
        apply(guide, self.path)
        run(["cmake", "-S", self.path, "-B", self.build, "-G", "Ninja", *self.options])

    def make(self, *targets):
        run(["cmake", "--build", self.build, "--target", *targets])


def follow(guide, source, options):
    with Tree(source, options) as tree:
        tree.follow(guide)
        tree.make("lspping", "TlvTest")
        compareRuns(guide, tree.path, tree.build)
        print(run([os.path.join(tree.build, "tests", "TlvTest"), "--gtest_filter=*Probe*",
                   "--gtest_brief=1"]))
        try:
            compareRuns(guide.replace("ProbeMark( 7 )", "ProbeMark( 8 )"), tree.path, tree.build)
        except Wrong:
            return
        raise Wrong("another output would not be noticed")


def without(guide, where):
    """The guide without the block that belongs there."""
    kept = re.sub(rf"<!-- {re.escape(where)} -->\n```.*?^```\n", "", guide, count=1,
                  flags=re.M | re.S)
    if kept == guide:
        raise Wrong(f"there is no block for {where}")
    return kept


def changed(guide, old, new):
    if old not in guide:
        raise Wrong(f"the guide has no '{old}'")
    return guide.replace(old, new)


def selfCheck(guide, source, options):
    types = "MplsUtils/LspPing/types/"
    damages = {
        "a block without its place": changed(guide, "<!-- run -->\n", ""),
        "a place that is not there": changed(guide, "at the end of LspPingHdrTypes",
                                             "at the end of LspPingTypes"),
        "a file without a folder": changed(guide, "LspPing/tlv/LspPingProbeMarkTlv.h: the",
                                           "LspPing/tlvs/LspPingProbeMarkTlv.h: the"),
        "no code": without(guide, types + "LspPingTlvTypes.h: at the end of LspPingTlvType"),
        "no place for the sub-TLVs' codes":
            without(guide, types + "LspPingModules.h: at the end of LspPingTypesTypes"),
        "no place for the classes":
            without(guide, types + "LspPingModules.h: at the end of LspPingHdrTypes"),
        "a view of another size": changed(guide, "LspPingProbeMarkTlv, 8 >", "LspPingProbeMarkTlv, 9 >"),
        "a sub-TLV without a code": changed(guide, "ProbeMarkSubTlvType::ProbeColour", "ProbeMark::None"),
    }

    unnoticed = []
    with Tree(source, options) as tree:
        classes = "MplsUtils/LspPing/CMakeFiles/LspPing.dir/tlv/LspPingProbeMarkTlv.cpp.o"

        def compileClasses(text):
            tree.follow(text)
            run(["rm", "-f", os.path.join(tree.build, classes)])
            tree.make(classes)

        compileClasses(guide)
        for name, damaged in damages.items():
            try:
                compileClasses(damaged)
                unnoticed.append(name)
            except (Wrong, OSError):
                pass
    if unnoticed:
        raise Wrong("not noticed: " + ", ".join(unnoticed))


def main():
    what, source, *options = sys.argv[1:]
    with open(os.path.join(source, GUIDE), encoding="utf-8") as file:
        guide = file.read()
    try:
        {"follow": follow, "selfCheck": selfCheck}[what](guide, source, options)
    except (Wrong, OSError) as error:
        sys.exit(str(error))


if __name__ == "__main__":
    main()
