#include "resources/ZipFile.h"

#include "resources/LocalZipEntry.h"

#include <zlib.h>

#include <sys/stat.h>

#include <cstring>
#include <utility>

static constexpr uint32_t endOfDirectorySignature = 0x06054B50;
static constexpr std::size_t endOfDirectorySize = 22;
static constexpr std::size_t maxArchiveComment = 0xFFFF;
// A ZIP without 64-bit extensions cannot be bigger than this.
static constexpr uint64_t maxArchiveSize = 0xFFFFFFFFull + endOfDirectorySize + maxArchiveComment;

// Size of an open regular file; false for anything else (directories, pipes).
static bool regularFileSize(std::FILE* file, uint64_t& size) {
    struct stat info {};
    if (fstat(fileno(file), &info) != 0 || !S_ISREG(info.st_mode) || info.st_size < 0) {
        return false;
    }
    size = static_cast<uint64_t>(info.st_size);
    return true;
}

// Where the central directory starts. The end-of-directory record names it
// exactly; without one we fall back to the first directory signature in the
// file. Returns false when neither finds a directory record.
static bool findCentralDirectory(const unsigned char* data, std::size_t size, std::size_t& start) {
    if (size >= endOfDirectorySize) {
        const std::size_t last = size - endOfDirectorySize;
        const std::size_t first = last > maxArchiveComment ? last - maxArchiveComment : 0;
        for (std::size_t pos = last + 1; pos-- > first;) {
            if (readLE32(data + pos) != endOfDirectorySignature) {
                continue;
            }
            const uint32_t offset = readLE32(data + pos + 16);
            if (static_cast<uint64_t>(offset) + 4 <= size &&
                readLE32(data + offset) == ZipEntry::centralSignature) {
                start = offset;
                return true;
            }
            break;
        }
    }
    // A stored member may hold directory-like bytes, which is why the
    // record above is preferred when there is one.
    for (std::size_t pos = 0; pos + 4 <= size; ++pos) {
        if (readLE32(data + pos) == ZipEntry::centralSignature) {
            start = pos;
            return true;
        }
    }
    return false;
}

ZipFile::ZipFile(std::string fileName) : fileName(std::move(fileName)) {}

bool ZipFile::open() {
    std::FILE* file = std::fopen(fileName.c_str(), "rb");
    uint64_t size = 0;
    if (!file || !regularFileSize(file, size)) {
        if (file) {
            std::fclose(file);
        }
        std::printf("couldn't open file, exiting\n");
        return false;
    }
    if (size > maxArchiveSize) {
        std::fclose(file);
        std::printf("file is too large to be a zip, exiting\n");
        return false;
    }
    std::vector<unsigned char> data(static_cast<std::size_t>(size));
    const std::size_t got = data.empty() ? 0 : std::fread(data.data(), 1, data.size(), file);
    std::fclose(file);
    if (got != data.size()) {
        std::printf("couldn't open file, exiting\n");
        return false;
    }
    return index(data.data(), data.size());
}

bool ZipFile::index(const unsigned char* data, std::size_t size) {
    entries.clear();
    firstByName.clear();
    opened = false;

    if (size < 4 || readLE32(data) != LocalZipEntry::localSignature) {
        std::printf("file is not a valid zip, exiting\n");
        return false;
    }

    std::size_t pos = 0;
    if (!findCentralDirectory(data, size, pos)) {
        std::printf("couldn't find central directory, exiting\n");
        return false;
    }

    while (pos + 4 <= size && readLE32(data + pos) == ZipEntry::centralSignature) {
        std::size_t recordSize = 0;
        std::unique_ptr<ZipEntry> entry = ZipEntry::parse(data + pos, size - pos, recordSize);
        if (!entry) {
            std::printf("truncated central directory record at %zu, ignoring the rest\n", pos);
            break;
        }
        pos += recordSize;

        if (static_cast<uint64_t>(entry->localHeaderOffset) + LocalZipEntry::fixedSize > size) {
            std::printf("%s points past the end of the archive, ignoring it\n",
                        entry->name.c_str());
            continue;
        }
        firstByName.emplace(entry->name, entries.size());
        entries.push_back(std::move(entry));
    }
    opened = true;
    return true;
}

const ZipEntry* ZipFile::findEntry(const std::string& name) const {
    auto found = firstByName.find(name);
    return found == firstByName.end() ? nullptr : entries[found->second].get();
}

std::unique_ptr<char[]> ZipFile::getBytes(const ZipEntry& entry, std::size_t& size,
                                          bool& error) const {
    size = 0;
    error = false;
    std::FILE* file = std::fopen(fileName.c_str(), "rb");
    uint64_t fileSize = 0;
    if (!file || !regularFileSize(file, fileSize)) {
        if (file) {
            std::fclose(file);
        }
        std::printf("couldn't open file, exiting\n");
        error = true;
        return nullptr;
    }
    std::unique_ptr<char[]> bytes = readMember(file, fileSize, entry, size, error);
    std::fclose(file);
    return bytes;
}

std::unique_ptr<char[]> ZipFile::readMember(std::FILE* file, uint64_t fileSize,
                                            const ZipEntry& entry, std::size_t& size,
                                            bool& error) {
    size = 0;
    error = false;
    LocalZipEntry local;
    if (static_cast<uint64_t>(entry.localHeaderOffset) + LocalZipEntry::fixedSize > fileSize ||
        std::fseek(file, static_cast<long>(entry.localHeaderOffset), SEEK_SET) != 0 ||
        !local.read(file, fileSize)) {
        std::printf("ZipFile::getBytes(): bad local header for %s\n", entry.name.c_str());
        error = true;
        return nullptr;
    }
    const uint64_t dataStart = static_cast<uint64_t>(entry.localHeaderOffset) +
                               LocalZipEntry::fixedSize + local.nameLength + local.extraLength;
    const uint64_t available = fileSize - dataStart;
    const uint32_t wanted = entry.uncompressedSize;

    if (wanted > maxMemberSize) {
        std::printf("ZipFile::getBytes(): %s claims %u bytes, more than we accept\n",
                    entry.name.c_str(), wanted);
        error = true;
        return nullptr;
    }

    if (local.method == 0) {
        if (wanted > available) {
            std::printf("ZipFile::getBytes(): %s claims more bytes than the archive holds\n",
                        entry.name.c_str());
            error = true;
            return nullptr;
        }
        std::unique_ptr<char[]> bytes(new char[wanted + zeroPadding]());
        if (wanted > 0 && std::fread(bytes.get(), 1, wanted, file) != wanted) {
            std::printf("ZipFile::getBytes(): fread file error\n");
            error = true;
            return nullptr;
        }
        size = wanted;
        return bytes;
    }
    if (local.method == 8) {
        if (wanted > available * maxDeflateRatio + 1024) {
            std::printf("ZipFile::getBytes(): %s claims more bytes than the archive holds\n",
                        entry.name.c_str());
            error = true;
            return nullptr;
        }
        return inflateMember(file, available, entry, size, error);
    }
    return nullptr;
}

std::unique_ptr<char[]> ZipFile::inflateMember(std::FILE* file, uint64_t available,
                                               const ZipEntry& entry, std::size_t& size,
                                               bool& error) {
    z_stream stream {};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) {
        std::printf("inflateinit2 failed\n");
        error = true;
        return nullptr;
    }

    const std::size_t wanted = entry.uncompressedSize;
    // The buffer grows with what inflate really produces, so a member that
    // merely claims a large size costs nothing.
    std::size_t capacity = wanted < 65536 ? wanted + zeroPadding : 65536;
    std::unique_ptr<char[]> bytes(new char[capacity]());
    std::size_t produced = 0;

    unsigned char input[blockSize];
    unsigned char output[blockSize];
    bool ended = false;
    bool corrupt = false;
    uint64_t remaining = available;
    while (!ended && !corrupt && produced < wanted && remaining > 0) {
        const std::size_t chunk = remaining < blockSize ? static_cast<std::size_t>(remaining)
                                                        : blockSize;
        const std::size_t got = std::fread(input, 1, chunk, file);
        if (std::ferror(file)) {
            std::printf("ZipFile::getBytes(): fread file error\n");
            inflateEnd(&stream);
            error = true;
            return nullptr;
        }
        if (got == 0) {
            break;
        }
        remaining -= got;
        stream.next_in = input;
        stream.avail_in = static_cast<uInt>(got);
        do {
            stream.next_out = output;
            stream.avail_out = blockSize;
            const int result = inflate(&stream, Z_NO_FLUSH);
            if (result == Z_NEED_DICT || result == Z_DATA_ERROR || result == Z_MEM_ERROR ||
                result == Z_STREAM_ERROR) {
                corrupt = true;
                break;
            }
            std::size_t block = blockSize - stream.avail_out;
            if (block > wanted - produced) {
                block = wanted - produced;  // output beyond the claimed size is dropped
            }
            if (produced + block + 1 > capacity) {
                std::size_t grown = capacity * 2;
                if (grown < produced + block + 1) {
                    grown = produced + block + 1;
                }
                if (grown > wanted + zeroPadding) {
                    grown = wanted + zeroPadding;
                }
                std::unique_ptr<char[]> larger(new char[grown]());
                std::memcpy(larger.get(), bytes.get(), produced);
                bytes = std::move(larger);
                capacity = grown;
            }
            std::memcpy(bytes.get() + produced, output, block);
            produced += block;
            if (result == Z_STREAM_END) {
                ended = true;
            }
        } while (!ended && stream.avail_out == 0 && produced < wanted);
    }
    inflateEnd(&stream);

    if (corrupt || produced < wanted) {
        std::printf("ZipFile::getBytes(): %s is corrupt or truncated\n", entry.name.c_str());
        error = true;
        return nullptr;
    }
    if (capacity < wanted + zeroPadding) {
        std::unique_ptr<char[]> exact(new char[wanted + zeroPadding]());
        std::memcpy(exact.get(), bytes.get(), produced);
        bytes = std::move(exact);
    }
    bytes[wanted] = '\0';
    size = wanted;
    return bytes;
}
