"""Checks that every text of the sources is translated into every language, with what a text must keep.

check_translations.py LUPDATE INCLUDE_FOLDER SOURCE_FOLDER... TRANSLATIONS_FOLDER               check the folder of .ts files
check_translations.py --self-check LUPDATE INCLUDE_FOLDER SOURCE_FOLDER... TRANSLATIONS_FOLDER  plant faults in copies, and see each found

To bring new texts into the files: cmake --build --preset dev --target VelmoraUpdateTranslations
"""
import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

LANGUAGES = {"ar", "de", "en", "es", "fr", "ja", "ru", "zh_CN"}
SCRIPTS = {"ar": "[\u0600-\u06ff]", "ja": "[\u3040-\u30ff\u4e00-\u9fff]", "ru": "[\u0400-\u04ff]", "zh_CN": "[\u4e00-\u9fff]"}
FORMS_OF_ONE_NUMBER = {"ar": 3}  # none, one and two, which a word may say without the numeral
DIRECTION = "QT_LAYOUT_DIRECTION"
PLACE = re.compile(r"%(?:L?\d+|L?n)")


class Message:
    def __init__(self, context, element):
        self.source = element.findtext("source")
        self.comment = element.findtext("comment")
        self.key = (context, self.source, self.comment, element.get("numerus") == "yes")
        translation = element.find("translation")
        self.state = translation.get("type")
        self.hasForms = self.key[3]
        self.texts = [form.text or "" for form in translation.iter("numerusform")] if self.hasForms else [translation.text or ""]


def messages_of(file):
    root = xml.etree.ElementTree.parse(file).getroot()
    return root.get("language"), [Message(context.findtext("name"), element)
                                  for context in root.iter("context") for element in context.iter("message")]


def texts_of_sources(lupdate, include, sources, language):
    """What lupdate writes for the language when it begins anew."""
    with tempfile.TemporaryDirectory() as scratch:
        file = pathlib.Path(scratch) / "fresh.ts"
        subprocess.run([lupdate, "-silent", "-source-language", "en", "-target-language", language, "-I", include, "-I", sources[0],
                        *sources, "-ts", file], check=True)
        return messages_of(file)[1]


def ending(text):
    """How a text ends: with an ellipsis, a full stop, a colon, or none of these."""
    for mark, forms in (("...", ("...",)), (".", (".", "。")), (":", (":", "："))):
        if text.endswith(forms):
            return mark
    return ""


def faults_of_text(language, message, index, text):
    source = message.source
    if not text.strip():
        yield "is empty"
        return
    if source == DIRECTION:
        if text not in ("LTR", "RTL"):
            yield "is neither LTR nor RTL"
        return
    places = collections.Counter(PLACE.findall(text))
    wanted = collections.Counter(PLACE.findall(source))
    if index < FORMS_OF_ONE_NUMBER.get(language, 0):
        del places["%n"], wanted["%n"]
    if places != wanted:
        yield "has other places for values"
    if ending(text) != ending(source):
        yield "ends otherwise"
    if text.count("&") != source.count("&"):
        yield "has another number of &"
    if text.count("\n") != source.count("\n") or text != text.strip():
        yield "has other lines or blanks at its ends"
    has_words = re.search("[A-Za-z]", PLACE.sub("", source))
    if has_words and language in SCRIPTS and not re.search(SCRIPTS[language], text):
        yield "is not in the script of its language"
    if has_words and text == source and (language != "en" or source.endswith("Msg")):
        yield "is not translated"


def check_file(lupdate, include, sources, file):
    language, messages = messages_of(file)
    if f"velmora_{language}.ts" != file.name:
        yield f"says that its language is {language}"
    fresh = {message.key: message for message in texts_of_sources(lupdate, include, sources, language or "en")}
    if not fresh:
        yield "cannot be compared: the sources have no texts"
    found = {message.key: message for message in messages}
    yield from (f"lacks {key}" for key in fresh if key not in found)
    yield from (f"has {key}, which the sources have not" for key in found if key not in fresh)
    for key in fresh.keys() & found.keys():
        message = found[key]
        if message.state:
            yield f"has {key}, which is {message.state}"
        if len(message.texts) != len(fresh[key].texts):
            yield f"has {key} in {len(message.texts)} forms for numbers in place of {len(fresh[key].texts)}"
        for index, text in enumerate(message.texts):
            yield from (f"has {key}, whose text {text!r} {fault}" for fault in faults_of_text(language, message, index, text))


def check(lupdate, include, sources, folder):
    """The faults of the folder, each a line."""
    faults = [f"there is no velmora_{language}.ts" for language in sorted(LANGUAGES)
              if not (folder / f"velmora_{language}.ts").exists()]
    for file in sorted(folder.glob("*.ts")):
        faults += [f"{file.name} {fault}" for fault in check_file(lupdate, include, sources, file)]
    return faults


# A file, what is replaced in it by what, and words of the fault that must be found, or none.
PLANTED = [
    ("velmora_de.ts", "<translation>Minimieren", '<translation type="unfinished">Minimieren', "which is unfinished"),
    ("velmora_de.ts", "<translation>Minimieren", '<translation type="vanished">Minimieren', "which is vanished"),
    ("velmora_de.ts", "<translation>Minimieren", "<translation>", "is empty"),
    ("velmora_de.ts", "<translation>Minimieren", "<translation>Minimize", "is not translated"),
    ("velmora_de.ts", "<source>Minimize", "<source>Minimise", "which the sources have not"),
    ("velmora_de.ts", "<source>Minimize", "<source>Minimise", "lacks ('QcDialog', 'Minimize'"),
    ("velmora_de.ts", "<translation>Links von %1", "<translation>Links", "other places"),
    ("velmora_de.ts", "Wird geladen...", "Wird geladen", "ends otherwise"),
    ("velmora_de.ts", "<translation>Minimieren", "<translation>&amp;Minimieren", "number of &"),
    ("velmora_de.ts", "<translation>Minimieren", "<translation>Minimieren ", "blanks at its ends"),
    ("velmora_de.ts", 'language="de"', 'language="fr"', "says that its language is fr"),
    ("velmora_de.ts", "            <numerusform>Die Formel hat %n Zeichen; eine Zelle fasst %1.</numerusform>\n", "", "1 forms for numbers"),
    ("velmora_en.ts", "<translation>Loading, please wait", "<translation>LoadingMsg", "is not translated"),
    ("velmora_ar.ts", "<translation>RTL", "<translation>right", "neither LTR nor RTL"),
    ("velmora_ru.ts", "<translation>Свернуть", "<translation>Minimieren", "script of its language"),
    ("velmora_ar.ts", "في الصيغة %n حرفًا", "في الصيغة حرفًا", "other places"),
    ("velmora_ar.ts", "في الصيغة حرفان", "في الصيغة %n حرف", None),
    ("velmora_de.ts", "<translation>Minimieren", "<translation>Verkleinern", None),
]


def self_check(lupdate, include, sources, folder):
    before = set(check(lupdate, include, sources, folder))
    for name, old, new, words in PLANTED:
        with tempfile.TemporaryDirectory() as scratch:
            copy = pathlib.Path(scratch) / "translations"
            shutil.copytree(folder, copy)
            text = (copy / name).read_text(encoding="utf-8")
            if old not in text:
                yield f"cannot be planted: {name} has no {old}"
            (copy / name).write_text(text.replace(old, new, 1), encoding="utf-8")
            found = [fault for fault in check(lupdate, include, sources, copy) if fault not in before]
        if words and not any(fault.startswith(name) and words in fault for fault in found):
            yield f"planted, not found: {new} in {name} ({found})"
        if not words and found:
            yield f"planted, wrongly blamed: {new} in {name} ({found})"
    with tempfile.TemporaryDirectory() as scratch:
        copy = pathlib.Path(scratch) / "translations"
        shutil.copytree(folder, copy)
        (copy / "velmora_ja.ts").unlink()
        if "there is no velmora_ja.ts" not in check(lupdate, include, sources, copy):
            yield "not found: a language that is gone"


if __name__ == "__main__":
    wants_self_check = sys.argv[1] == "--self-check"
    lupdate, include, *sources, folder = sys.argv[2 if wants_self_check else 1:]
    arguments = lupdate, include, sources, pathlib.Path(folder)
    faults = list(self_check(*arguments)) if wants_self_check else check(*arguments)
    print("\n".join(faults))
    sys.exit(1 if faults else 0)
