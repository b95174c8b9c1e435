#include "render/TextureManager.h"

#include <GL/gl.h>
#include <GL/glu.h>
#include <IL/il.h>
#include <IL/ilu.h>

#include <cstdio>
#include <limits>
#include <memory>
#include <ostream>

#include "resources/ResourceManager.h"

const char* const TextureManager::fallbackPath = "data/images/fallback.png";

namespace {
// Larger images are refused rather than allocated (hostile or broken files).
constexpr long long maxPixels = 8192LL * 8192LL;

void startDevil()
{
    static bool started = false;
    if (!started) {
        ilInit();
        iluInit();
        started = true;
    }
}

// Decodes the file (on disk, else in the data archive) into the bound DevIL
// image; false when it cannot be found or DevIL cannot read it.
bool decodeInto(const std::string& path)
{
    std::size_t size = 0;
    bool error = false;
    const std::unique_ptr<char[]> bytes = ResourceManager::instance().getBytes(path, size, error);
    if (error || !bytes || size == 0 || size > std::numeric_limits<ILuint>::max())
        return false;
    const auto length = static_cast<ILuint>(size);
    ILenum type = ilTypeFromExt(path.c_str());
    if (type == IL_TYPE_UNKNOWN)
        type = ilDetermineTypeL(bytes.get(), length);
    if (type == IL_TYPE_UNKNOWN)
        return false;
    return ilLoadL(type, bytes.get(), length) == IL_TRUE;
}

bool hasAlpha()
{
    switch (ilGetInteger(IL_IMAGE_FORMAT)) {
    case IL_RGBA:
    case IL_BGRA:
    case IL_LUMINANCE_ALPHA:
        return true;
    case IL_COLOUR_INDEX: {
        const ILint palette = ilGetInteger(IL_PALETTE_TYPE);
        return palette == IL_PAL_RGBA32 || palette == IL_PAL_BGRA32;
    }
    default:
        return false;
    }
}
}

TextureManager::~TextureManager() { unloadAll(); }

Texture* TextureManager::load(const std::string& path, bool clamp)
{
    startDevil();
    ilEnable(IL_ORIGIN_SET);
    ilOriginFunc(IL_ORIGIN_UPPER_LEFT);
    ILuint image = 0;
    ilGenImages(1, &image);
    ilBindImage(image);

    Texture* result = nullptr;
    ++decodeCount;
    if (decodeInto(path)) {
        iluFlipImage();
        const int w = ilGetInteger(IL_IMAGE_WIDTH);
        const int h = ilGetInteger(IL_IMAGE_HEIGHT);
        // Palette, grey and 16-bit images are widened so every upload is RGB or RGBA bytes.
        const bool alpha = hasAlpha();
        const bool converted =
            ilConvertImage(alpha ? IL_RGBA : IL_RGB, IL_UNSIGNED_BYTE) == IL_TRUE;
        if (converted && w > 0 && h > 0 && static_cast<long long>(w) * h <= maxPixels) {
            auto texture = std::make_unique<Texture>(w, h, alpha ? 32 : 24, path);
            texture->glId = uploadTexture(ilGetData(), w, h, alpha, clamp);
            result = texture.get();
            textures[path] = std::move(texture);
        }
    }
    if (!result)
        std::printf("FAILED to load texture: %s\n", path.c_str());
    ilDeleteImages(1, &image);
    return result;
}

Texture* TextureManager::find(const std::string& path)
{
    auto it = textures.find(path);
    return it == textures.end() ? nullptr : it->second.get();
}

const Texture* TextureManager::findConst(const std::string& path) const
{
    auto it = textures.find(path);
    return it == textures.end() ? nullptr : it->second.get();
}

int TextureManager::indexOf(unsigned int glId) const
{
    int index = 0;
    for (const auto& entry : textures) {
        if (entry.second->glId == glId)
            return index;
        ++index;
    }
    return -1;
}

int TextureManager::bind(const std::string& path, bool clamp)
{
    Texture* texture = find(path);
    if (!texture && !failedPaths.count(path))
        texture = load(path, clamp);
    if (!texture) {
        failedPaths.insert(path);
        return bindFallback();
    }
    bindTexture(texture->glId);
    return static_cast<int>(texture->glId);
}

int TextureManager::bindId(int glId)
{
    bindTexture(static_cast<unsigned int>(glId));
    return glId;
}

int TextureManager::bindFallback()
{
    Texture* texture = find(fallbackPath);
    if (!texture && !failedPaths.count(fallbackPath))
        texture = load(fallbackPath, false);
    if (!texture) {
        failedPaths.insert(fallbackPath);
        return -1;
    }
    bindTexture(texture->glId);
    return static_cast<int>(texture->glId);
}

int TextureManager::getId(const std::string& path) const
{
    const Texture* texture = findConst(path);
    return texture ? static_cast<int>(texture->glId) : -1;
}

int TextureManager::getWidth(const std::string& path) const
{
    const Texture* texture = findConst(path);
    return texture ? texture->width : -1;
}

int TextureManager::getHeight(const std::string& path) const
{
    const Texture* texture = findConst(path);
    return texture ? texture->height : -1;
}

void TextureManager::unload(const std::string& path)
{
    auto it = textures.find(path);
    if (it == textures.end())
        return;
    deleteTexture(it->second->glId);
    textures.erase(it);
}

void TextureManager::unloadAll()
{
    for (const auto& entry : textures)
        deleteTexture(entry.second->glId);
    textures.clear();
}

void TextureManager::dump(std::ostream& out) const
{
    for (const auto& entry : textures) {
        const Texture& t = *entry.second;
        out << t.path << " : w,h: " << t.width << "," << t.height << " : bpp: " << t.bitsPerPixel
            << " : glID: " << t.glId << "\n";
    }
}

unsigned int TextureManager::uploadTexture(const unsigned char* pixels, int w, int h, bool alpha,
                                           bool clamp)
{
    GLuint id = 0;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    const GLint wrap = clamp ? GL_CLAMP_TO_EDGE : GL_REPEAT;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexEnvf(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    // DevIL rows are tightly packed; RGB rows are not 4-byte aligned in general.
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    const GLenum format = alpha ? GL_RGBA : GL_RGB;
    gluBuild2DMipmaps(GL_TEXTURE_2D, alpha ? 4 : 3, w, h, format, GL_UNSIGNED_BYTE, pixels);
    return id;
}

void TextureManager::deleteTexture(unsigned int glId)
{
    GLuint id = glId;
    glDeleteTextures(1, &id);
}

void TextureManager::bindTexture(unsigned int glId) { glBindTexture(GL_TEXTURE_2D, glId); }
