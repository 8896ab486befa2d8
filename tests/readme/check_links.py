"""Fails when a page of a site has a link that leads nowhere or out of its folder, or a picture that is not there.

usage: check_links.py FOLDER
"""

import html.parser
import os
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    """The links of a page and what can be linked to in it."""

    def __init__(self, path):
        super().__init__()
        self.links = set()
        self.anchors = {""}
        with open(path, encoding="utf-8") as file:
            self.feed(file.read())

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name in ("id", "name") and value:
                self.anchors.add(value)
            elif name in ("href", "src", "data") and value:
                self.links.add(value)


def main():
    folder = os.path.abspath(sys.argv[1])
    pages = {}
    for directory, _, names in os.walk(folder):
        for name in names:
            if name.endswith(".html"):
                path = os.path.join(directory, name)
                pages[path] = Page(path)
    checked = 0
    dead = []
    for path, page in sorted(pages.items()):
        for link in sorted(page.links):
            address = urllib.parse.urlsplit(link)
            if address.scheme or address.netloc:
                continue
            checked += 1
            target = path
            if address.path:
                target = os.path.normpath(os.path.join(os.path.dirname(path), urllib.parse.unquote(address.path)))
            anchor = urllib.parse.unquote(address.fragment)
            inside = target.startswith(folder + os.sep) and os.path.exists(target)
            if not inside or target in pages and anchor not in pages[target].anchors:
                dead.append(f"{os.path.relpath(path, folder)}: {link}")
    for line in dead:
        print(f"leads nowhere: {line}")
    print(f"{len(pages)} pages, {checked} links, {len(dead)} that lead nowhere")
    sys.exit(1 if dead or not checked else 0)


if __name__ == "__main__":
    main()
