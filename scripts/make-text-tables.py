#!/usr/bin/env python3
"""Makes gesso/text/TextClassTables.cpp, by which clusters and words are told apart.

    make-text-tables.py            writes the file
    make-text-tables.py --check    fails where the file is not what would be written

Reads the files of Unicode that Debian's package `unicode-data` installs, and the enumerators of
gesso/text/TextClasses.h, whose names are Unicode's own.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = pathlib.Path("/usr/share/unicode")
CLASSES = ROOT / "gesso/text/TextClasses.h"
TABLES = ROOT / "gesso/text/TextClassTables.cpp"
CODE_POINTS = 0x110000


def read(name):
    path = DATA / name
    if not path.is_file():
        sys.exit(f"{path} is missing: run scripts/setup.sh test")
    return path.read_text(encoding="utf-8")


def values(name):
    """(code point, value) of each line of one of Unicode's files."""
    for first, last, value in re.findall(r"^([0-9A-F]+)(?:\.\.([0-9A-F]+))?\s*;\s*(\w+)", read(name), re.M):
        for code in range(int(first, 16), int(last or first, 16) + 1):
            yield code, value


def having(name, value):
    return {code for code, other in values(name) if other == value}


def cluster_classes():
    classes = dict(values("auxiliary/GraphemeBreakProperty.txt"))
    for code in having("emoji/emoji-data.txt", "Extended_Pictographic"):
        if classes.setdefault(code, "Extended_Pictographic") != "Extended_Pictographic":
            sys.exit(f"U+{code:04X} is a pictograph and {classes[code]}: one class is not enough any more")
    return classes


def word_classes():
    classes = dict(values("auxiliary/WordBreakProperty.txt"))
    # An emoji is a word, as an ideograph is; it joins no run of punctuation.
    emoji = having("emoji/emoji-data.txt", "Emoji_Presentation")
    for code, category in values("extracted/DerivedGeneralCategory.txt"):
        if category[0] in "PS" and code not in emoji:
            classes.setdefault(code, "Punctuation")
    for code in having("PropList.txt", "White_Space"):
        classes.setdefault(code, "Space")
    return classes


def enumerators(name):
    body = re.search(rf"enum class {name} : BYTE\s*\{{(.*?)\}};", CLASSES.read_text(encoding="utf-8"), re.S)[1]
    return {name: number for number, name in enumerate(re.findall(r"\w+", body))}


def ranges(classes):
    former = None
    for code, value in enumerate(classes):
        if value != former:
            yield code << 8 | value
        former = value


def rows(numbers, form, count):
    words = [format(number, form) + "," for number in numbers]
    return "\n".join("    " + " ".join(words[at:at + count]) for at in range(0, len(words), count))


def table(variable, enumeration, named):
    numbers = enumerators(enumeration)
    classes = [numbers[named.get(code, "Other")] for code in range(CODE_POINTS)]
    name = variable.replace("CLASSES", "RANGES")
    return f"""
static const UINT {name}[] = {{
{rows(ranges(classes), "#010x", 9)}
}};

const ClassTable {variable} = {{
    {{
{rows(classes[:256], "2", 25)}
    }},
    {name}, static_cast<UINT>(std::size({name}))}};
"""


def source():
    version = re.match(r"# GraphemeBreakProperty-([\d.]+)\.txt", read("auxiliary/GraphemeBreakProperty.txt"))[1]
    if re.search(r"; InCB;", read("DerivedCoreProperties.txt")):
        sys.exit(f"Unicode {version} joins clusters by Indic_Conjunct_Break too, which TextBoundary.cpp does not")
    return (f"// Made by scripts/make-text-tables.py from the files of Unicode {version}.\n"
            "// clang-format off\n"
            "#include <gesso/text/TextClasses.h>\n\nnamespace gesso {\n"
            + table("CLUSTER_CLASSES", "ClusterClass", cluster_classes())
            + table("WORD_CLASSES", "WordClass", word_classes())
            + "\n} // namespace gesso\n")


def main():
    made = source()
    if sys.argv[1:] == ["--check"]:
        if not TABLES.is_file() or TABLES.read_text(encoding="utf-8") != made:
            sys.exit(f"{TABLES.relative_to(ROOT)} is not what scripts/make-text-tables.py makes")
    elif sys.argv[1:]:
        sys.exit(__doc__)
    else:
        TABLES.write_text(made, encoding="utf-8")


if __name__ == "__main__":
    main()
