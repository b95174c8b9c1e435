#include "resources/ZipEntry.h"

std::unique_ptr<ZipEntry> ZipEntry::parse(const unsigned char* data, std::size_t available,
                                          std::size_t& recordSize) {
    recordSize = 0;
    if (available < fixedSize || readLE32(data) != centralSignature) {
        return nullptr;
    }
    auto entry = std::make_unique<ZipEntry>();
    entry->signature = readLE32(data);
    entry->versionMadeBy = readLE16(data + 4);
    entry->versionNeeded = readLE16(data + 6);
    entry->flags = readLE16(data + 8);
    entry->method = readLE16(data + 10);
    entry->modificationTime = readLE16(data + 12);
    entry->modificationDate = readLE16(data + 14);
    entry->crc32 = readLE32(data + 16);
    entry->compressedSize = readLE32(data + 20);
    entry->uncompressedSize = readLE32(data + 24);
    entry->nameLength = readLE16(data + 28);
    entry->extraLength = readLE16(data + 30);
    entry->commentLength = readLE16(data + 32);
    entry->diskNumberStart = readLE16(data + 34);
    entry->internalAttributes = readLE16(data + 36);
    entry->externalAttributes = readLE32(data + 38);
    entry->localHeaderOffset = readLE32(data + 42);

    const std::size_t total = fixedSize + entry->nameLength + entry->extraLength +
                              entry->commentLength;
    if (total > available) {
        return nullptr;
    }
    const char* text = reinterpret_cast<const char*>(data + fixedSize);
    entry->name.assign(text, entry->nameLength);
    entry->extraField.assign(text + entry->nameLength, entry->extraLength);
    entry->comment.assign(text + entry->nameLength + entry->extraLength, entry->commentLength);

    entry->dataOffset = static_cast<uint64_t>(entry->localHeaderOffset) + 30 +
                        entry->nameLength + entry->extraLength;
    entry->hasSlash = entry->name.find('/') != std::string::npos;
    recordSize = total;
    return entry;
}
