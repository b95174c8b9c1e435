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

// Raw deflate (no zlib header), as ZIP members hold it.
inline std::string rawDeflate(const std::string& text)
{
    z_stream s{};
    deflateInit2(&s, 9, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY);
    std::string out(deflateBound(&s, text.size()), '\0');
    s.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    s.avail_in = static_cast<uInt>(text.size());
    s.next_out = reinterpret_cast<Bytef*>(&out[0]);
    s.avail_out = static_cast<uInt>(out.size());
    deflate(&s, Z_FINISH);
    out.resize(s.total_out);
    deflateEnd(&s);
    return out;
}

inline ZipMember storedMember(const std::string& name, const std::string& text)
{
    return {name, text, 0, static_cast<uint32_t>(text.size())};
}

inline ZipMember deflatedMember(const std::string& name, const std::string& text)
{
    return {name, rawDeflate(text), 8, static_cast<uint32_t>(text.size())};
}

inline void putLE16(std::string& out, uint32_t v)
{
    out += static_cast<char>(v & 0xFF);
    out += static_cast<char>((v >> 8) & 0xFF);
}

inline void putLE32(std::string& out, uint32_t v)
{
    putLE16(out, v & 0xFFFF);
    putLE16(out, v >> 16);
}

inline void setLE32(std::string& image, std::size_t at, uint32_t v)
{
    std::string bytes;
    putLE32(bytes, v);
    image.replace(at, 4, bytes);
}

// Local headers and data, then the central directory, then the end record.
// `centralAt` receives where each directory record starts.
inline std::string buildZip(const std::vector<ZipMember>& members,
                            std::vector<std::size_t>* centralAt = nullptr)
{
    std::string image;
    // From the flags to the extra field's length, local and directory records agree.
    auto common = [&image](const ZipMember& m) {
        putLE16(image, 0);
        putLE16(image, m.method);
        putLE32(image, 0);  // time and date
        putLE32(image, 0);  // CRC, which the reader does not check
        putLE32(image, static_cast<uint32_t>(m.data.size()));
        putLE32(image, m.uncompressedSize);
        putLE16(image, static_cast<uint32_t>(m.name.size()));
        putLE16(image, 0);
    };
    std::vector<uint32_t> offsets;
    for (const ZipMember& m : members) {
        offsets.push_back(static_cast<uint32_t>(image.size()));
        putLE32(image, 0x04034B50);
        putLE16(image, 20);
        common(m);
        image += m.name;
        image += m.data;
    }
    const uint32_t directory = static_cast<uint32_t>(image.size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        if (centralAt)
            centralAt->push_back(image.size());
        putLE32(image, 0x02014B50);
        putLE16(image, 20);
        putLE16(image, 20);
        common(members[i]);
        putLE16(image, 0);  // comment length
        putLE16(image, 0);  // disk
        putLE16(image, 0);  // internal attributes
        putLE32(image, 0);  // external attributes
        putLE32(image, offsets[i]);
        image += members[i].name;
    }
    const uint32_t directorySize = static_cast<uint32_t>(image.size()) - directory;
    putLE32(image, 0x06054B50);
    putLE16(image, 0);
    putLE16(image, 0);
    putLE16(image, static_cast<uint32_t>(members.size()));
    putLE16(image, static_cast<uint32_t>(members.size()));
    putLE32(image, directorySize);
    putLE32(image, directory);
    putLE16(image, 0);
    return image;
}
