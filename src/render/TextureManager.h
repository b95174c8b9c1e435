#pragma once
// The texture cache: an image name becomes an OpenGL texture on first use and
// stays cached under that name for the rest of the run. Images are decoded by
// DevIL from the file on disk or, when it is not there, from the data archive,
// so the whole data tree can ship as one zip. A name that cannot be loaded
// gives way to the fallback image; the failure is remembered, so it is
// decoded and reported once, not every frame.
//
// The GL side (upload, bind, delete) sits behind three protected hooks so
// the cache rules can run without a GL context.
#include <iosfwd>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "render/Texture.h"

class TextureManager {
public:
    static const char* const fallbackPath;

    TextureManager() = default;
    TextureManager(const TextureManager&) = delete;
    TextureManager& operator=(const TextureManager&) = delete;
    // Empties the cache, deleting every GL texture.
    virtual ~TextureManager();

    // Decodes and uploads the image, caching it under path; null (and a log line) on failure.
    virtual Texture* load(const std::string& path, bool clamp);
    // Cache lookup only.
    virtual Texture* find(const std::string& path);
    // Position in name order of the first texture with this GL id; -1 when none.
    virtual int indexOf(unsigned int glId) const;
    // Binds the cached texture, loading it on first use; the fallback when it cannot be loaded.
    virtual int bind(const std::string& path, bool clamp);
    virtual int getId(int glId) const { return glId; }
    virtual int bindId(int glId);
    // Binds "data/images/fallback.png"; -1 (nothing bound) when even that is missing.
    virtual int bindFallback();
    // The cached texture's GL id, -1 when not cached; never loads.
    virtual int getId(const std::string& path) const;
    virtual int getWidth(const std::string& path) const;
    virtual int getHeight(const std::string& path) const;
    virtual void unload(const std::string& path);
    virtual void unloadAll();
    // One line per texture: "path : w,h: W,H : bpp: B : glID: N".
    virtual void dump(std::ostream& out) const;

    size_t size() const { return textures.size(); }
    // How many images were decoded so far (a cache hit decodes nothing).
    int getDecodeCount() const { return decodeCount; }

protected:
    // Uploads tightly packed rows, bottom row first; returns the new GL name.
    virtual unsigned int uploadTexture(const unsigned char* pixels, int width, int height,
                                       bool alpha, bool clamp);
    virtual void deleteTexture(unsigned int glId);
    virtual void bindTexture(unsigned int glId);

private:
    const Texture* findConst(const std::string& path) const;

    std::map<std::string, std::unique_ptr<Texture>> textures;
    std::set<std::string> failedPaths;
    int decodeCount = 0;
};
