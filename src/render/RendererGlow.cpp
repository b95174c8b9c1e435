// The Renderer's glow pass: capturing the bright scene and adding it back blurred.
#include "render/Renderer.h"

#include <GL/gl.h>

#include <algorithm>
#include <ostream>

#include "console/GameVar.h"

namespace {
// Each of the four glow copies adds a tenth of the capture.
constexpr float glowCopyWeight = 0.1f;
}

void Renderer::createTexture(unsigned int& id, int w, int h)
{
    std::vector<unsigned char> zeros(static_cast<size_t>(w) * static_cast<size_t>(h) * 4, 0);
    GLuint tex = 0;
    glGenTextures(1, &tex);
    glBindTexture(GL_TEXTURE_2D, tex);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, w, h, 0, GL_RGBA, GL_UNSIGNED_BYTE, zeros.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    id = tex;
}

void Renderer::createGlowTexture(int w, int h)
{
    createTexture(glowTexture, w, h);
    createTexture(glowSumTexture, w, h);
    glowWidth = w;
    glowHeight = h;
}

void Renderer::emitScreenQuad(int areaWidth, int areaHeight, float dx, float dy)
{
    const float w = static_cast<float>(areaWidth);
    const float h = static_cast<float>(areaHeight);
    glTexCoord2f(0.0f, 0.0f);
    glVertex2f(dx, h + dy);
    glTexCoord2f(0.0f, -1.0f);
    glVertex2f(dx, dy);
    glTexCoord2f(1.0f, -1.0f);
    glVertex2f(w + dx, dy);
    glTexCoord2f(1.0f, 0.0f);
    glVertex2f(w + dx, h + dy);
}

void Renderer::beginCapture()
{
    capturing = true;
    glViewport(0, 0, glowWidth, glowHeight);
}

void Renderer::endCapture()
{
    glBindTexture(GL_TEXTURE_2D, glowTexture);
    // Into the storage made with the texture, not a new one every frame.
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 0, 0, glowWidth, glowHeight);
    clearGlowCorner();
    sumGlowCopies();
    glViewport(0, 0, width, height);
    capturing = false;
}

void Renderer::clearGlowCorner()
{
    // Only the corner was drawn into; clearing the whole window would cost
    // as much as a full-screen quad on a software rasteriser.
    const GLboolean scissorWasOn = glIsEnabled(GL_SCISSOR_TEST);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, glowWidth, glowHeight);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!scissorWasOn)
        glDisable(GL_SCISSOR_TEST);
}

void Renderer::sumGlowCopies()
{
    // The corner of the window is still scratch space here: add the four
    // offset copies at the capture's size, keep the sum, clear the corner.
    const int blur = varInt(bloomBlurPixels);
    const float d = blur != 0 ? static_cast<float>(blur) : 4.0f;
    const float dx = d * static_cast<float>(glowWidth) / static_cast<float>(std::max(width, 1));
    const float dy = d * static_cast<float>(glowHeight) / static_cast<float>(std::max(height, 1));
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, glowWidth, 0.0, glowHeight, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_TEXTURE_GEN_S);
    glDisable(GL_TEXTURE_GEN_T);
    setTexturing(true);
    setBlending(true);
    setAdditiveBlend();
    glColor4f(1.0f, 1.0f, 1.0f, glowCopyWeight);
    glBindTexture(GL_TEXTURE_2D, glowTexture);
    glBegin(GL_QUADS);
    emitScreenQuad(glowWidth, glowHeight, dx, dy);
    emitScreenQuad(glowWidth, glowHeight, -dx, dy);
    emitScreenQuad(glowWidth, glowHeight, -dx, -dy);
    emitScreenQuad(glowWidth, glowHeight, dx, -dy);
    glEnd();
    glBindTexture(GL_TEXTURE_2D, glowSumTexture);
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 0, 0, glowWidth, glowHeight);
    glowTiles.clear();
    if (frameReuse) {
        glowPixels.resize(static_cast<size_t>(glowWidth) * static_cast<size_t>(glowHeight) * 4);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, glowWidth, glowHeight, GL_RGBA, GL_UNSIGNED_BYTE, glowPixels.data());
        glowTiles = litGlowTiles(glowPixels.data(), glowWidth, glowHeight, glowTileSize);
    }
    clearGlowCorner();
    glEnable(GL_DEPTH_TEST);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    setAlphaBlend();
    glBindTexture(GL_TEXTURE_2D, 0);
    currentTextureId = -1;
}

void Renderer::drawGlow()
{
    // Off, low and full: the glow can dazzle.
    const int strength = glowStrength ? glowStrength->intValue : 2;
    const float share = strength <= 0 ? 0.0f : strength == 1 ? 0.45f : 1.0f;
    if (share == 0.0f)
        return;
    glDisable(GL_TEXTURE_GEN_S);
    glDisable(GL_TEXTURE_GEN_T);
    setTexturing(true);
    setAdditiveBlend();
    setBlending(true);
    begin2D();
    glColor4f(share, share, share, share);
    glBindTexture(GL_TEXTURE_2D, glowSumTexture);
    glBegin(GL_QUADS);
    const int tilesX = (glowWidth + glowTileSize - 1) / glowTileSize;
    const int tilesY = (glowHeight + glowTileSize - 1) / glowTileSize;
    if (glowTiles.size() != static_cast<size_t>(tilesX) * static_cast<size_t>(tilesY)) {
        emitScreenQuad(width, height, 0.0f, 0.0f);
    } else {
        // Runs of lit tiles, each on the same texture mapping as the whole window.
        const float w = static_cast<float>(width);
        const float h = static_cast<float>(height);
        auto windowX = [&](int tx) { return std::min(w, w * static_cast<float>(tx * glowTileSize) / static_cast<float>(glowWidth)); };
        auto windowY = [&](int ty) { return std::min(h, h * static_cast<float>(ty * glowTileSize) / static_cast<float>(glowHeight)); };
        auto vertex = [&](float x, float y) {
            glTexCoord2f(x / w, y / h - 1.0f);
            glVertex2f(x, y);
        };
        for (int ty = 0; ty < tilesY; ++ty) {
            for (int tx = 0; tx < tilesX;) {
                if (!glowTiles[static_cast<size_t>(ty * tilesX + tx)]) {
                    ++tx;
                    continue;
                }
                const int first = tx;
                while (tx < tilesX && glowTiles[static_cast<size_t>(ty * tilesX + tx)])
                    ++tx;
                const float x0 = windowX(first), x1 = windowX(tx), y0 = windowY(ty), y1 = windowY(ty + 1);
                vertex(x0, y1);
                vertex(x0, y0);
                vertex(x1, y0);
                vertex(x1, y1);
            }
        }
    }
    glEnd();
    end2D();
    setTexturing(false);
    setBlending(false);
    glBindTexture(GL_TEXTURE_2D, 0);
    currentTextureId = -1;
}

std::vector<bool> Renderer::litGlowTiles(const unsigned char* rgba, int w, int h, int tile)
{
    const int tilesX = (w + tile - 1) / tile;
    const int tilesY = (h + tile - 1) / tile;
    std::vector<bool> lit(static_cast<size_t>(tilesX) * static_cast<size_t>(tilesY), false);
    for (int y = 0; y < h; ++y) {
        const unsigned char* row = rgba + static_cast<size_t>(y) * static_cast<size_t>(w) * 4;
        for (int x = 0; x < w; ++x) {
            const unsigned char* p = row + static_cast<size_t>(x) * 4;
            if ((p[0] | p[1] | p[2]) == 0)
                continue;
            // Filtering reaches one texel further, across the edges too (the texture repeats).
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx) {
                    const int tx = ((x + dx + w) % w) / tile;
                    const int ty = ((y + dy + h) % h) / tile;
                    lit[static_cast<size_t>(ty * tilesX + tx)] = true;
                }
        }
    }
    return lit;
}

void Renderer::printGlowTextureId(std::ostream& out) { out << "Blur Texture ID: " << glowTexture << "\n"; }
