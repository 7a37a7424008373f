# read_signature.py FILE: reads the code signatures of a universal file with nothing but Python's standard library, and
# fails when anything is not as a kernel of iOS 9 to 12 wants it. Prints a line for each slice.
import hashlib
import plistlib
import struct
import sys

CPUS = {(0x0100000C, 0): "arm64", (12, 9): "armv7"}
KINDS = {1: ("SHA-1", hashlib.sha1), 2: ("SHA-256", hashlib.sha256)}


def expect(holds, what):
    if not holds:
        sys.exit(f"{sys.argv[1]}: {what}")


def signature_of(image):
    magic, cpu, subtype, _, count, _ = struct.unpack_from("<6I", image)
    at = 32 if magic == 0xFEEDFACF else 28
    found = []
    for _ in range(count):
        command, size = struct.unpack_from("<2I", image, at)
        if command == 0x1D:
            found.append(struct.unpack_from("<2I", image, at + 8))
        at += size
    expect(len(found) == 1, f"{len(found)} signatures")
    return CPUS[cpu, subtype], found[0]


def read_directory(image, blob, blobs, limit):
    (_, length, version, flags, hashes, name, special, pages, covered, size, kind, platform, bits) = struct.unpack_from(
        ">9I4B", blob
    )
    expect(length == len(blob) and version == 0x20400 and flags == 2 and bits == 12, "a directory's head")
    expect(covered == limit and pages == -(-limit // 4096), "what a directory covers")
    # No scatter, no team, no limit of 64 bits; the code begins with the file and is no main program's.
    *nothing, _, main = struct.unpack_from(">4I4Q", blob, 40)
    expect(not any(nothing) and main == 0, "what a directory says besides")
    label, function = KINDS[kind]
    expect(size == function().digest_size, "a hash's size")
    for page in range(pages):
        written = blob[hashes + page * size : hashes + (page + 1) * size]
        expect(written == function(image[page * 4096 : min((page + 1) * 4096, limit)]).digest(), f"page {page}")
    for slot in range(1, special + 1):
        written = blob[hashes - slot * size : hashes - (slot - 1) * size]
        expected = function(blobs[slot]).digest() if slot in blobs else bytes(size)
        expect(written == expected, f"special slot {slot}")
    expect(special == 5, "special slots")
    return label, blob[name : blob.index(0, name)].decode()


def read_slice(image):
    cpu, (start, size) = signature_of(image)
    expect(start % 16 == 0 and start + size == len(image), "where the signature lies")
    magic, length, count = struct.unpack_from(">3I", image, start)
    expect(magic == 0xFADE0CC0 and length <= size, "the blob of blobs")
    blobs = {}
    for i in range(count):
        slot, offset = struct.unpack_from(">2I", image, start + 12 + 8 * i)
        inner = struct.unpack_from(">I", image, start + offset + 4)[0]
        blobs[slot] = image[start + offset : start + offset + inner]
    expect(sorted(blobs) == [0, 2, 5, 0x1000], "the slots")
    expect(blobs[2] == bytes.fromhex("fade0c010000000c00000000"), "the requirements")
    expect(blobs[5][:4] == b"\xfa\xde\x71\x71" and plistlib.loads(blobs[5][8:]) == {}, "the entitlements")
    first, name = read_directory(image, blobs[0], blobs, start)
    second, other = read_directory(image, blobs[0x1000], blobs, start)
    expect((first, second) == ("SHA-1", "SHA-256") and name == other, "the two directories")
    print(f"{cpu}: {first} and {second} of {-(-start // 4096)} pages, {name}")


with open(sys.argv[1], "rb") as source:
    whole = source.read()
magic, slices = struct.unpack_from(">2I", whole)
expect(magic == 0xCAFEBABE and slices == 2, "not a universal file of two slices")
for i in range(slices):
    _, _, start, size, _ = struct.unpack_from(">5I", whole, 8 + 20 * i)
    read_slice(whole[start : start + size])
