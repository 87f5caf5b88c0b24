"""make_floppy.py FILE: a 1.44 MB diskette with a boot sector without an extended boot record, and sectors that differ."""
import pathlib
import struct
import sys

boot = bytes.fromhex("eb3c90") + b"VEXLOR  " + struct.pack("<HBHBHHBHHHII", 512, 1, 1, 2, 224, 2880, 0xF0, 9, 18, 2, 0, 0)
sectors = [boot.ljust(510, b"\0") + b"\x55\xAA"] + [bytes([n & 0xFF, n >> 8]) * 256 for n in range(1, 2880)]
pathlib.Path(sys.argv[1]).write_bytes(b"".join(sectors))
