"""Checks that each class, record, enumeration and free function of the public headers has a comment that a host reads.

check_docs.py SRC_FOLDER               check the folder
check_docs.py --self-check SRC_FOLDER  check samples, in which the faults are known
"""
import pathlib
import re
import sys

# At the left margin: what is nested is told, if need be, by the class's comment.
DECLARED = re.compile(r"^(?:(?:class|struct|enum class|enum)\s+(?:VELMORA_EXPORT\s+)?(\w+)(?![^{]*;)|VELMORA_EXPORT\s[^(]*?([\w=]+)\()")


def undocumented(text):
    """The names in a header's text that have no comment. Declarations in a block without a blank line share its first one's."""
    told = False
    for line in text.splitlines():
        if line.startswith("///"):
            told = True
        elif not line.strip() or line.startswith("}"):
            told = False
        named = DECLARED.match(line)
        if named and not told:
            yield named.group(1) or named.group(2)


def check(folder):
    headers = [file for file in sorted(folder.rglob("*.h")) if not file.name.endswith("_p.h")]
    if not headers:
        yield f"no header in {folder}"
    for header in headers:
        for name in undocumented(header.read_text(encoding="utf-8")):
            yield f"{header.relative_to(folder).as_posix()}: {name} has no comment"


SAMPLES = {
    "class VELMORA_EXPORT Bare : public QWidget\n{\n": ["Bare"],
    "// Not for hosts.\nstruct Bare\n{\n": ["Bare"],
    "/// Of something else.\n\nenum class Bare {\n": ["Bare"],
    "VELMORA_EXPORT QString Bare(int a,\n                     int b);\n": ["Bare"],
    "/// Told.\nclass VELMORA_EXPORT Told\n{\n};\n\nstruct Bare\n{\n": ["Bare"],
    "/// Told.\nVELMORA_EXPORT void One();\nVELMORA_EXPORT void Two();\n\nVELMORA_EXPORT void Bare();\n": ["Bare"],
    "class Forward;\nstruct Another;\n/// Told.\ntemplate <typename T>\nclass Told\n{\n": [],
}


def self_check():
    for text, names in SAMPLES.items():
        found = list(undocumented(text))
        if found != names:
            yield f"found {found}, not {names} in:\n{text}"


if __name__ == "__main__":
    *option, folder = sys.argv[1:]
    faults = list(self_check()) if option == ["--self-check"] else list(check(pathlib.Path(folder)))
    print("\n".join(faults))
    sys.exit(1 if faults else 0)
