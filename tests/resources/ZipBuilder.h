#pragma once
// Builds ZIP archive images byte by byte, so tests can write archives that no
// archiver would: lying sizes, offsets past the end, broken streams.
#include <zlib.h>

#include <cstdint>
#include <string>
#include <vector>

struct ZipMember {
    std::string name;
    std::string data;              // the bytes stored in the archive
    uint16_t method = 0;           // 0 stored, 8 deflated
    uint32_t uncompressedSize = 0; // what the directory claims
};

inline ZipMember storedMember(const std::string& name, const std::string& text)
{
    return {name, text, 0, static_cast<uint32_t>(text.size())};
}

// A zlib stream without its two-byte header and Adler-32 trailer is the raw
// deflate that ZIP members hold.
inline ZipMember deflatedMember(const std::string& name, const std::string& text)
{
    uLongf size = compressBound(text.size());
    std::string out(size, '\0');
    compress2(reinterpret_cast<Bytef*>(&out[0]), &size, reinterpret_cast<const Bytef*>(text.data()), text.size(), 9);
    return {name, out.substr(2, size - 6), 8, static_cast<uint32_t>(text.size())};
}

// Appends `v` as a little-endian field of `bytes` bytes.
inline void putLE(std::string& out, uint32_t v, int bytes = 4)
{
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((v >> (8 * i)) & 0xFF);
}

inline void setLE32(std::string& image, std::size_t at, uint32_t v)
{
    std::string bytes;
    putLE(bytes, v);
    image.replace(at, 4, bytes);
}

// Local headers and data, then the central directory, then the end record.
// `centralAt` receives where each directory record starts.
inline std::string buildZip(const std::vector<ZipMember>& members, std::vector<std::size_t>* centralAt = nullptr)
{
    std::string image;
    // From the version needed to the extra field's length, local and directory records agree.
    auto common = [&image](const ZipMember& m) {
        putLE(image, 20, 2);
        putLE(image, 0, 2);  // flags
        putLE(image, m.method, 2);
        putLE(image, 0);  // time and date
        putLE(image, 0);  // CRC, which the reader does not check
        putLE(image, static_cast<uint32_t>(m.data.size()));
        putLE(image, m.uncompressedSize);
        putLE(image, static_cast<uint32_t>(m.name.size()), 2);
        putLE(image, 0, 2);
    };
    std::vector<uint32_t> offsets;
    for (const ZipMember& m : members) {
        offsets.push_back(static_cast<uint32_t>(image.size()));
        putLE(image, 0x04034B50);
        common(m);
        image += m.name + m.data;
    }
    const uint32_t directory = static_cast<uint32_t>(image.size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (centralAt)
            centralAt->push_back(image.size());
        putLE(image, 0x02014B50);
        putLE(image, 20, 2);  // made by
        common(members[i]);
        image += std::string(10, '\0');  // comment length, disk, attributes
        putLE(image, offsets[i]);
        image += members[i].name;
    }
    const uint32_t directorySize = static_cast<uint32_t>(image.size()) - directory;
    putLE(image, 0x06054B50);
    putLE(image, 0);  // disk numbers
    putLE(image, static_cast<uint32_t>(members.size()), 2);
    putLE(image, static_cast<uint32_t>(members.size()), 2);
    putLE(image, directorySize);
    putLE(image, directory);
    putLE(image, 0, 2);  // comment length
    return image;
}
