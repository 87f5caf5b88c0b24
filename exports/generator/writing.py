"""Products on the disk: whole or not at all."""
import os


def write_if_changed(path, text):
    content = text.encode("utf-8")  # with the ends of lines that it has
    if path.exists() and path.read_bytes() == content:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    partial = path.with_name(f"{path.name}.{os.getpid()}.partial")  # so that a build that is killed leaves no half file
    try:
        partial.write_bytes(content)
        partial.replace(path)
    finally:
        partial.unlink(missing_ok=True)
