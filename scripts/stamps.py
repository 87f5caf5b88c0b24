"""Remembers which files have passed a check, by their content and that of all project files that they include."""
import hashlib
import re

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


class Stamps:
    def __init__(self, folder, salt, roots):
        """`salt` is whatever else the outcome hangs on; quoted includes are looked for in `roots`."""
        self.folder, self.salt, self.roots = folder, salt, roots

    def reached(self, path):
        """The file and all that it includes, from one to the next."""
        found, waiting = set(), [path]
        while waiting:
            path = waiting.pop()
            if path in found:
                continue
            found.add(path)
            for quoted, _ in INCLUDE.findall(path.read_text(encoding="utf-8")):
                waiting += [c for c in (root / quoted for root in [*self.roots, path.parent]) if c.is_file()][:1]
        return found

    def stamp(self, path):
        digest = hashlib.sha256(self.salt.encode())
        for file in sorted(self.reached(path)):
            digest.update(str(file).encode() + b"\0" + file.read_bytes() + b"\0")
        return self.folder / digest.hexdigest()

    def has(self, path):
        return self.stamp(path).exists()

    def put(self, path):
        self.folder.mkdir(parents=True, exist_ok=True)
        self.stamp(path).touch()
