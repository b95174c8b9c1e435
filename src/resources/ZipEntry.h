#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

// One record of an archive's central directory: where a member lives, how big
// it is and what it is called. Read once when the archive is indexed; the
// member's bytes are read later through its local header.
class ZipEntry {
public:
    static constexpr uint32_t centralSignature = 0x02014B50;
    static constexpr std::size_t fixedSize = 46;  // bytes before the name

    virtual ~ZipEntry() = default;

    // Reads the record at `data`. Null when the signature is wrong or the
    // record (with its name, extra field and comment) does not fit in
    // `available` bytes; otherwise `recordSize` is the record's full length.
    static std::unique_ptr<ZipEntry> parse(const unsigned char* data, std::size_t available,
                                           std::size_t& recordSize);

    uint32_t signature = 0;
    uint16_t versionMadeBy = 0;
    uint16_t versionNeeded = 0;
    uint16_t flags = 0;
    uint16_t method = 0;            // informational: the local header decides
    uint16_t modificationTime = 0;
    uint16_t modificationDate = 0;
    uint32_t crc32 = 0;             // kept, never checked
    uint32_t compressedSize = 0;    // kept; the deflate stream's end decides
    uint32_t uncompressedSize = 0;  // size of the buffer handed out
    uint16_t nameLength = 0;
    uint16_t extraLength = 0;
    uint16_t commentLength = 0;
    uint16_t diskNumberStart = 0;
    uint16_t internalAttributes = 0;
    uint32_t externalAttributes = 0;
    uint32_t localHeaderOffset = 0;
    std::string name;               // compared byte for byte with requested paths
    std::string extraField;
    std::string comment;

    // localHeaderOffset + 30 + name and extra lengths of this record.
    uint64_t dataOffset = 0;
    bool hasSlash = false;
};

// Little-endian field readers shared by the archive records.
inline uint16_t readLE16(const unsigned char* p) {
    return static_cast<uint16_t>(p[0] | (p[1] << 8));
}

inline uint32_t readLE32(const unsigned char* p) {
    return static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
           (static_cast<uint32_t>(p[2]) << 16) | (static_cast<uint32_t>(p[3]) << 24);
}
