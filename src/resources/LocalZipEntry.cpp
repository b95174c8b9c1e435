#include "resources/LocalZipEntry.h"

#include "resources/ZipEntry.h"

bool LocalZipEntry::read(std::FILE* file, uint64_t fileSize) {
    const long start = std::ftell(file);
    if (start < 0 || static_cast<uint64_t>(start) + fixedSize > fileSize) {
        return false;
    }
    unsigned char header[fixedSize];
    if (std::fread(header, 1, fixedSize, file) != fixedSize) {
        return false;
    }
    signature = readLE32(header);
    version = readLE16(header + 4);
    flags = readLE16(header + 6);
    method = readLE16(header + 8);
    time = readLE16(header + 10);
    date = readLE16(header + 12);
    crc32 = readLE32(header + 14);
    compressedSize = readLE32(header + 18);
    uncompressedSize = readLE32(header + 22);
    nameLength = readLE16(header + 26);
    extraLength = readLE16(header + 28);
    if (signature != localSignature) {
        return false;
    }
    if (static_cast<uint64_t>(start) + fixedSize + nameLength + extraLength > fileSize) {
        return false;
    }
    name.assign(nameLength, '\0');
    extraField.assign(extraLength, '\0');
    if ((nameLength > 0 && std::fread(&name[0], 1, nameLength, file) != nameLength) ||
        (extraLength > 0 && std::fread(&extraField[0], 1, extraLength, file) != extraLength)) {
        return false;
    }
    return true;
}
