#pragma once

#include "resources/ZipEntry.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

// A ZIP archive read with our own reader: indexed once from a single read of
// the whole file, members read on demand by reopening the file (no handle is
// kept, nothing is cached). Stored and deflated members are supported. The
// archive is untrusted: every offset and size is checked against the file,
// and a member that does not add up is reported and treated as absent.
class ZipFile {
public:
    // Largest member we hand out; a bigger claim is treated as corrupt.
    static constexpr uint32_t maxMemberSize = 256u * 1024u * 1024u;
    // Deflate cannot expand input by more than about 1032:1; a member
    // claiming more than this per input byte is lying.
    static constexpr uint64_t maxDeflateRatio = 1032;
    // Input and output block size of the inflate loop.
    static constexpr std::size_t blockSize = 512;

    explicit ZipFile(std::string fileName);
    virtual ~ZipFile() = default;

    // Reads and indexes the archive file; false (with a message) when it is
    // missing, not a ZIP, or has no central directory.
    bool open();
    // Indexes an archive image already in memory (open() and the fuzzer).
    bool index(const unsigned char* data, std::size_t size);

    // The first entry of that exact name, or null.
    const ZipEntry* findEntry(const std::string& name) const;

    // Zero bytes after the data of every file served, not counted in its
    // size. TinyXML steps over a UTF-8 character by its lead byte without
    // looking for the end, up to three bytes past a last lead byte.
    static constexpr std::size_t zeroPadding = 4;

    // The member's bytes followed by zeroPadding zero bytes not counted in `size`.
    // Null with `error` set when the archive or the member is unreadable;
    // null without `error` for an unsupported compression method.
    std::unique_ptr<char[]> getBytes(const ZipEntry& entry, std::size_t& size,
                                     bool& error) const;
    // As getBytes, from an archive stream of `fileSize` bytes that is already open.
    static std::unique_ptr<char[]> readMember(std::FILE* file, uint64_t fileSize,
                                              const ZipEntry& entry, std::size_t& size,
                                              bool& error);

    const std::vector<std::unique_ptr<ZipEntry>>& getEntries() const { return entries; }
    const std::string& getFileName() const { return fileName; }
    bool isOpen() const { return opened; }

private:
    static std::unique_ptr<char[]> inflateMember(std::FILE* file, uint64_t available,
                                                 const ZipEntry& entry, std::size_t& size,
                                                 bool& error);

    std::vector<std::unique_ptr<ZipEntry>> entries;  // central-directory order
    std::unordered_map<std::string, std::size_t> firstByName;
    std::string fileName;
    bool opened = false;
};
