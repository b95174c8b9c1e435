#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

// The local file header that sits in front of each member's data. Its method
// decides how the data is decoded; the data starts right after its name and
// extra field.
class LocalZipEntry {
public:
    static constexpr uint32_t localSignature = 0x04034B50;
    static constexpr std::size_t fixedSize = 30;  // bytes before the name

    virtual ~LocalZipEntry() = default;

    // Reads the header at the file's current position. False when the header
    // is short, has the wrong signature, or its name and extra field run past
    // `fileSize`; the stream is then left somewhere inside the header.
    bool read(std::FILE* file, uint64_t fileSize);

    uint32_t signature = 0;
    uint16_t version = 0;
    uint16_t flags = 0;
    uint16_t method = 0;
    uint16_t time = 0;
    uint16_t date = 0;
    uint32_t crc32 = 0;
    uint32_t compressedSize = 0;
    uint32_t uncompressedSize = 0;
    uint16_t nameLength = 0;
    uint16_t extraLength = 0;
    std::string name;
    std::string extraField;
};
