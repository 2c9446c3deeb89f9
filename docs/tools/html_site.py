"""Writes the documents as HTML.

    html_site.py FOLDER

The pages are README.md, SECURITY.md and those of docs/, in the order of the links of
docs/index.md.  They refer to each other and to a style sheet beside them, and to nothing else.
"""

from __future__ import annotations

import html
import posixpath
import shutil
import sys
from pathlib import Path

from markdown_it import MarkdownIt
from markdown_it.token import Token
from markdown_page import CodeBlock, Page

TOOLS = Path(__file__).resolve().parent
ROOT = TOOLS.parent.parent
STYLE = "style.css"
TEMPLATE = """\
<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<link rel="stylesheet" href="{style}">
</head>
<body>
<nav>
{menu}
</nav>
<main>
{content}</main>
</body>
</html>
"""
# Short names for the menu, where the title of the page is long.
MENU = {
    "docs/index.md": "Documents",
    "README.md": "README",
    "SECURITY.md": "Security",
    "docs/tutorial-schema-to-cobol.md": "Schema to COBOL",
    "docs/tutorial-cobol-to-schema.md": "COBOL to schema",
    "docs/rules.md": "Rules",
    "docs/many-machines.md": "Many machines",
    "docs/messages.md": "Messages",
    "docs/limits.md": "Limits",
}
NOT_IN_MENU = {"docs/rules-schema.md", "docs/rules-cobol.md", "SECURITY.md"}


def site_pages() -> dict[str, Page]:
    """The pages by their path in the repository, in the order of the menu."""
    index = Page(ROOT / "docs" / "index.md")
    names = ["docs/index.md"]
    for link in index.links:
        target = link.target.partition("#")[0]
        if target.endswith(".md"):
            names.append(posixpath.normpath(posixpath.join("docs", target)))
    names += [f"docs/{path.name}" for path in sorted((ROOT / "docs").glob("*.md"))]
    names.append("SECURITY.md")
    return {name: Page(ROOT / name) for name in dict.fromkeys(names)}


def html_name(name: str) -> str:
    return posixpath.basename(name).removesuffix(".md").lower() + ".html"


def new_target(target: str, name: str, pages: dict[str, Page]) -> str | None:
    """What a link of the page `name` leads to in the site; None if it leads out of it."""
    path, mark, anchor = target.partition("#")
    if not path:
        return target
    found = posixpath.normpath(posixpath.join(posixpath.dirname(name), path))
    return html_name(found) + mark + anchor if found in pages else None


def with_site_links(children: list[Token], name: str, pages: dict[str, Page]) -> list[Token]:
    """The tokens of a text with links that hold in the site; others lose the link."""
    kept = []
    links_kept: list[bool] = []
    for child in children:
        if child.type == "link_open":
            target = new_target(str(child.attrGet("href")), name, pages)
            links_kept.append(target is not None)
            if target is not None:
                child.attrSet("href", target)
                kept.append(child)
        elif child.type != "link_close" or links_kept.pop():
            kept.append(child)
    return kept


def render_fence(renderer, tokens, index, options, env) -> str:  # type: ignore[no-untyped-def]
    token = tokens[index]
    block = CodeBlock(tuple(token.info.split()), token.content, 0)
    text = f"<pre><code>{html.escape(token.content, quote=False)}</code></pre>\n"
    if not block.file:
        return text
    return f"<figure><figcaption>{html.escape(block.file)}</figcaption>{text}</figure>\n"


def make_renderer() -> MarkdownIt:
    renderer = MarkdownIt("commonmark").enable("table")
    renderer.add_render_rule("fence", render_fence)
    renderer.add_render_rule("table_open", lambda *_: '<div class="table">\n<table>\n')
    renderer.add_render_rule("table_close", lambda *_: "</table>\n</div>\n")
    return renderer


def render(name: str, pages: dict[str, Page]) -> str:
    page = pages[name]
    anchors = iter(page.headings)
    for token in page.tokens:
        if token.type == "heading_open":
            token.attrSet("id", next(anchors).anchor)
        elif token.children is not None:
            token.children = with_site_links(token.children, name, pages)
    renderer = make_renderer()
    return renderer.renderer.render(page.tokens, renderer.options, {})


def menu(current: str, pages: dict[str, Page]) -> str:
    lines = []
    for name, page in pages.items():
        if name in NOT_IN_MENU:
            continue
        here = ' aria-current="page"' if name == current else ""
        title = html.escape(MENU.get(name, page.title))
        lines.append(f'<a href="{html_name(name)}"{here}>{title}</a>')
    return "\n".join(lines)


def write_site(folder: Path) -> None:
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("*.html"):
        old.unlink()
    pages = site_pages()
    for name, page in pages.items():
        text = TEMPLATE.format(
            title=html.escape(page.title),
            style=STYLE,
            menu=menu(name, pages),
            content=render(name, pages),
        )
        (folder / html_name(name)).write_text(text, encoding="utf-8")
    shutil.copy(TOOLS / STYLE, folder / STYLE)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: html_site.py FOLDER")
    write_site(Path(sys.argv[1]))
