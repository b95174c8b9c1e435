#pragma once

class ZipFile;
class ZipEntry;

// The answer to an archive lookup: which archive holds the member and its
// directory record. Both links are non-owning; the bundle belongs to the
// caller of the lookup and is dropped after use.
class ZipResultsBundle {
public:
    ZipResultsBundle(ZipFile* zipFile, const ZipEntry* entry) : zipFile(zipFile), entry(entry) {}
    virtual ~ZipResultsBundle() = default;

    ZipFile* zipFile = nullptr;
    const ZipEntry* entry = nullptr;
};
