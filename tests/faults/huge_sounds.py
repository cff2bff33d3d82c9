# SPDX-License-Identifier: MIT
"""huge_sounds.py TOOL PROGRAM SOURCE: sounds that are long, or claim to be, with a limit on memory.

Outcomes: the beginning of the sound becomes the take, or one sentence. The program must never end for lack of memory: it
reads only the part of a file that it needs, and takes no memory for the length that a header claims.
"""
import os
import resource
import struct
import subprocess
import sys

from journey import HEADER_BYTES, Patience, Place, Verdict, ended, fresh_signals, sanitized

# Room for the programs and their libraries, but not for a sound of ten minutes (more than 100 MB as floats).
ADDRESS_BYTES = 160 << 20
STEREO_SECONDS = 600


def bounded():
    fresh_signals()
    if not sanitized():  # the address sanitizer reserves terabytes of addresses
        resource.setrlimit(resource.RLIMIT_AS, (ADDRESS_BYTES, ADDRESS_BYTES))


def ten_minutes(path):
    """Writes a stereo file at 44.1 kHz: one second of a wave, the rest a hole that takes no room on the disk."""
    size = STEREO_SECONDS * 44100 * 4
    with open(path, "wb") as file:
        file.write(b"RIFF" + struct.pack("<I", 36 + size) + b"WAVEfmt "
                   + struct.pack("<IHHIIHH", 16, 1, 2, 44100, 176400, 4, 16) + b"data" + struct.pack("<I", size))
        file.write(b"".join(struct.pack("<hh", *[(i * 300) % 20000 - 10000] * 2) for i in range(44100)))
        file.truncate(HEADER_BYTES + size)


def lying_wav(path):
    with open(path, "wb") as file:
        file.write(b"RIFF" + struct.pack("<I", 0xFFFFFFFF) + b"WAVEfmt "
                   + struct.pack("<IHHIIHH", 16, 1, 1, 384000, 768000, 2, 16) + b"data"
                   + struct.pack("<I", 0xFFFFFFF0) + struct.pack("<h", 1000) * 500)


def lying_flac(path):
    """Writes a header that claims 2^36 - 1 samples at 192 kHz, and noise instead of frames."""
    info = struct.pack(">HH", 4096, 4096) + bytes(6) + struct.pack(">Q", 192000 << 44 | 15 << 36 | (1 << 36) - 1) + bytes(16)
    with open(path, "wb") as file:
        file.write(b"fLaC\x80" + struct.pack(">I", len(info))[1:] + info + b"\x55" * 286)


SOUNDS = [("ten-minutes.wav", ten_minutes, True), ("lying.wav", lying_wav, True), ("lying.flac", lying_flac, False)]


def with_headless(verdict, program, source):
    for name, make, is_sound in SOUNDS:
        for way in ("take", "mic"):
            with Place(program, source) as place:
                make(place.path(name))
                use = "take %s\n" % name if way == "take" else \
                    "mic %s\nkey middle\nuntil Record\nkey middle\nuntil Recording\n" % name
                outcome = place.run("until Options\n" + use + "until Play\nswipe left\nkey middle\nuntil Playing\n",
                                    preexec=bounded)
                case = "%s %s" % (way, name)
                if is_sound:
                    verdict.outcome(case, outcome, ["done"])
                else:
                    fine = outcome.kind() == "done" or (outcome.status in (1, 2) and outcome.error.count("\n") == 1)
                    verdict.check(fine, "%s: %s" % (case, outcome))


def with_tool(verdict, tool, program, source):
    for name, make, is_sound in SOUNDS:
        with Place(program, source) as place:
            make(place.path(name))
            with subprocess.Popen([os.path.realpath(tool), "robot", name, "out.wav"], cwd=place.folder,
                                  preexec_fn=bounded, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
                out, error, by_itself = ended(process, Patience(process))
            words = error.decode(errors="replace")
            case = "%s: status %d, %s" % (name, process.returncode, words if by_itself else "it hangs")
            if name == "lying.wav":
                verdict.check(process.returncode == 0 and words == "", case)
            else:  # longer than a minute, or damaged
                verdict.check(process.returncode == 1 and words.count("\n") == 1 and out == b"", case)
                verdict.check(not os.path.exists(place.path("out.wav")), case)


def to_the_end(verdict, tool, program, source):
    """Ten minutes are read, converted and written whole, with the same limit on memory."""
    with Place(program, source) as place:
        ten_minutes(place.path("in.wav"))
        with subprocess.Popen([os.path.realpath(tool), "none", "--long", "in.wav", "out.wav"], cwd=place.folder,
                              preexec_fn=bounded, stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            _, errors, by_itself = ended(process, Patience(process))
        words = errors.decode(errors="replace")
        case = "--long: status %d, %s" % (process.returncode, words if by_itself else "it hangs")
        verdict.check(process.returncode == 0 and words == "", case)
        out = place.path("out.wav")
        verdict.check(os.path.exists(out) and os.path.getsize(out) == 44 + STEREO_SECONDS * 8000 * 2, "--long: its length")


def main(tool, program, source):
    verdict = Verdict()
    with_headless(verdict, program, source)
    with_tool(verdict, tool, program, source)
    to_the_end(verdict, tool, program, source)
    verdict.end()


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], sys.argv[3])
