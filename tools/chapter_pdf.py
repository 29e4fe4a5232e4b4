#!/usr/bin/env python3
"""Sets a chapter of the course as PDF: chapter_pdf.py TEXT.md STYLE.css FIGURES-FOLDER OUT.pdf

The text is Markdown with three additions, each a paragraph of its own:

    [figure a.svg b.svg: caption]   pictures of the program, side by side
    [table a.html b.html: caption]  tables of the program, one below the other
    [numbers: caption]              a caption for the Markdown table that follows

and, inside a paragraph, [see a.svg], which becomes "Figure 17.3", and [section Its heading], which
becomes "section 17.7". Second-level headings, figures and tables are numbered within the chapter,
whose number is the first one of the first heading.
"""

import html
import os
import re
import sys
import tempfile

import markdown
import weasyprint

DIRECTIVE = re.compile(r"^\[(figure|table|numbers)([^:\]]*): (.*?)\]$", re.M | re.S)
REFERENCE = re.compile(r"\[see ([\w.-]+)\]")
SECTION = re.compile(r"\[section ([^\]]*)\]")
EXTENSIONS = ["tables", "attr_list", "def_list", "admonition", "sane_lists", "toc", "md_in_html"]
# Pictures at least so wide take the width of the page, and not half of it.
WIDE = 500


class Chapter:
    def __init__(self, text, figures):
        self.figures = figures
        self.number = re.search(r"^# \D*(\d+)", text, re.M).group(1)
        self.title = re.sub("<.*?>", "", re.search(r"^# (.*)$", text, re.M).group(1))
        self.counts = {"Figure": 0, "Table": 0}
        self.places = {}  # file -> "Figure 17.3"
        self.text = text
        titles = re.findall(r"^## (.*)$", text, re.M)
        self.sections = {title: f"{self.number}.{i}" for i, title in enumerate(titles, 1)}

    def fragment(self, name):
        with open(os.path.join(self.figures, name), encoding="utf-8") as file:
            return file.read()

    def numbered(self, kind, names):
        self.counts[kind] += 1
        label = f"{kind} {self.number}.{self.counts[kind]}"
        for name in names:
            if name in self.places:
                raise SystemExit(f"chapter_pdf.py: {name} is shown twice")
            self.places[name] = label
        return label

    def directive(self, match):
        kind, names, caption = match.group(1), match.group(2).split(), match.group(3)
        label = self.numbered("Figure" if kind == "figure" else "Table", names)
        anchor = f'id="{label.replace(" ", "-").lower()}"'
        caption = " ".join(caption.split())
        head = f'<figcaption markdown="span">**{label}**   {caption}</figcaption>'
        if kind == "numbers":
            return f'<figure class="table numbers" {anchor} markdown="1">\n{head}\n\n'
        if kind == "table":
            body = "\n".join(self.fragment(name) for name in names)
            return f'<figure class="table" {anchor} markdown="1">\n{head}\n<div>{body}</div>\n</figure>'
        pictures = "".join(self.picture(name) for name in names)
        count = "pair" if len(names) > 1 else "single"
        return (f'<figure class="{count}" {anchor} markdown="1">\n<div class="pictures">{pictures}'
                f"</div>\n{head}\n</figure>")

    def picture(self, name):
        content = self.fragment(name)
        said = re.search(r"<desc>(.*?)</desc>", content, re.S)
        wide = int(re.search(r' width="(\d+)', content).group(1)) >= WIDE
        return f'<img src="{name}" class="{"wide" if wide else ""}" alt="{said.group(1)}"/>'

    def reference(self, match):
        label = self.places.get(match.group(1))
        if not label:
            raise SystemExit(f"chapter_pdf.py: {match.group(1)} is not shown in the chapter")
        return f"[{label.replace(' ', '&nbsp;')}](#{label.replace(' ', '-').lower()})"

    def section(self, match):
        if match.group(1) not in self.sections:
            raise SystemExit(f"chapter_pdf.py: there is no section {match.group(1)}")
        return f'<a href="#{self.sections[match.group(1)]}">section&nbsp;{self.sections[match.group(1)]}</a>'

    def heading(self, match):
        number = self.sections[match.group(1)]
        return f"## {number} {match.group(1)} {{: #{number} }}"

    def html(self, style):
        text = re.sub(r"^## (.*)$", self.heading, self.text, flags=re.M)
        text = SECTION.sub(self.section, text)
        # The Markdown table behind [numbers: ...] ends at the next empty line.
        text = re.sub(r"(^\[numbers[^\]]*\]\n\n(?:\|.*\n)+)", r"\1\n</figure>\n", text, flags=re.M)
        text = DIRECTIVE.sub(self.directive, text)
        text = REFERENCE.sub(self.reference, text)
        converter = markdown.Markdown(
            extensions=EXTENSIONS,
            extension_configs={"toc": {"toc_depth": "2-2", "marker": "[contents]"}})
        body = converter.convert(text)
        return (f'<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8">'
                f"<title>{html.escape(self.title)}</title>"
                f'<meta name="author" content="Zelmar statistics courseware">'
                f"<style>{style}</style></head><body>{body}</body></html>\n")


def read(name):
    with open(name, encoding="utf-8") as file:
        return file.read()


def write(name, content):
    """Writes beside the target and renames, so that no half a file is left behind."""
    folder = os.path.dirname(os.path.abspath(name))
    os.makedirs(folder, exist_ok=True)
    with tempfile.NamedTemporaryFile(dir=folder, delete=False) as file:
        file.write(content)
    os.chmod(file.name, 0o644)
    os.replace(file.name, name)


def offline(url, **options):
    """Nothing but files of the build."""
    if not url.startswith(("file:", "data:")):
        raise SystemExit(f"chapter_pdf.py: the chapter asks for {url}")
    return weasyprint.default_url_fetcher(url, **options)


def main(words):
    # The time in subsets of fonts: equal sources make equal files.
    os.environ.setdefault("SOURCE_DATE_EPOCH", "0")
    if len(words) != 4:
        raise SystemExit(__doc__)
    text, style, figures, target = words
    page = Chapter(read(text), figures).html(read(style))
    if target.endswith(".html"):  # to look at what is set
        write(target, page.encode())
        return
    document = weasyprint.HTML(
        string=page, base_url=os.path.abspath(figures) + os.sep, url_fetcher=offline)
    # The hints make lists start at the number that the text gives them.
    write(target, document.write_pdf(variant="pdf/ua-1", presentational_hints=True))


if __name__ == "__main__":
    main(sys.argv[1:])
