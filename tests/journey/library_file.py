# SPDX-License-Identifier: GPL-3.0-or-later
"""Library files as the program reads them, made without it."""

import hashlib
import os
import plistlib
import subprocess


def write_library(path, tracks, playlists=(), searches=()):
    """tracks by their ids; the others are lists of their records."""
    plain = plistlib.dumps({"Application Version": "1.0", "Library": tracks, "Playlists": list(playlists),
                            "Recent Searches": list(searches), "Data": {}})
    size = len(plain)
    padded = plain + bytes(16 * (size // 16) + 32 - size - 4) + size.to_bytes(4, "big")
    key, vector = hashlib.sha1(b"zibmusic").digest()[:16], os.urandom(16)
    sealed = subprocess.run(["openssl", "enc", "-aes-128-cbc", "-nopad", "-K", key.hex(), "-iv", vector.hex()],
                            input=padded, stdout=subprocess.PIPE, check=True).stdout
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(vector + sealed)
