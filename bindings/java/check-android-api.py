#!/usr/bin/env python3
"""Fails when the compiled binding calls a JDK class, method or field that android-api.txt
does not list at Android API level 24 or below.

The list names each class (java/util/ArrayList) and member (java/util/ArrayList.add) the
binding's bytecode refers to, with the API level that first has it. javap reads the jar.
"""
import argparse
import re
import subprocess
import sys
import zipfile

MAX_LEVEL = 24
# "// Method java/util/ArrayList.add:(Ljava/lang/Object;)Z", "// Field ...", "// class ..."
REFERENCE = re.compile(r"// (?:Method|InterfaceMethod|Field|class) ((?:java|javax)/[\w/$]+)(?:\.([\w<>$]+|\"<init>\"))?")
SUPERTYPE = re.compile(r"(?:extends|implements) ([\w.$<>, ]+)")


def allowed_entries(path):
    entries = {}
    for number, line in enumerate(open(path, encoding="utf-8"), 1):
        line = line.split("#", 1)[0].strip()
        if not line:
            continue
        name, level = line.split()
        entries[name] = (int(level), number)
    return entries


def references(javap, jar):
    with zipfile.ZipFile(jar) as archive:
        classes = [n[:-6].replace("/", ".") for n in archive.namelist() if n.endswith(".class")]
    text = subprocess.run([javap, "-c", "-p", "-classpath", jar] + classes, check=True,
                          capture_output=True, text=True).stdout
    found = set()
    for owner, member in REFERENCE.findall(text):
        found.add(owner)
        if member:
            found.add(owner + "." + member.strip('"'))
    for line in text.splitlines():
        # Member declarations name the JDK types of parameters, results and fields.
        if line.startswith("  ") and not line.startswith("   ") and line.rstrip().endswith(";"):
            for name in re.findall(r"\b(java\.[\w.$]+|javax\.[\w.$]+)", line):
                found.add(name.replace(".", "/"))
        if line.startswith(("public ", "final ", "class ", "abstract ")) and "{" in line:
            for group in SUPERTYPE.findall(line):
                for name in re.sub(r"<[^>]*>", "", group).split(","):
                    name = name.strip().replace(".", "/")
                    if name.startswith(("java/", "javax/")):
                        found.add(name)
    return found


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--javap", required=True)
    parser.add_argument("--jar", required=True)
    parser.add_argument("--allowed", required=True)
    args = parser.parse_args()
    allowed = allowed_entries(args.allowed)
    problems = []
    for name in sorted(references(args.javap, args.jar)):
        if name not in allowed:
            problems.append("%s is not listed in %s" % (name, args.allowed))
        elif allowed[name][0] > MAX_LEVEL:
            problems.append("%s needs API level %d (line %d); the binding supports %d"
                            % (name, allowed[name][0], allowed[name][1], MAX_LEVEL))
    if problems:
        sys.exit("\n".join(problems))
    print("every JDK reference of %s is on Android API level %d or below" % (args.jar, MAX_LEVEL))


if __name__ == "__main__":
    main()
