// The Renderer's world drawing: bodies, their outlines and strings, and beams.
#include "render/Renderer.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

#include "render/FontRenderer.h"
#include "render/RendererColour.h"
#include "world/body/Body.h"
#include "world/geometry/RGBAColour.h"

void Renderer::computeBeamQuad(float corners[8], const Vector& from, const Vector& to, float w)
{
    float dx = to.x - from.x;
    float dy = to.y - from.y;
    const float len = std::sqrt(dx * dx + dy * dy);
    float nx = 0.0f, ny = 0.0f;
    if (len > 0.0f) {
        nx = -dy / len * w;
        ny = dx / len * w;
    }
    corners[0] = from.x - nx;
    corners[1] = from.y - ny;
    corners[2] = from.x + nx;
    corners[3] = from.y + ny;
    corners[4] = to.x + nx;
    corners[5] = to.y + ny;
    corners[6] = to.x - nx;
    corners[7] = to.y - ny;
}

void Renderer::emitBeamQuad(float z, bool flip)
{
    const float u0 = flip ? 1.0f : 0.0f;
    const float u1 = flip ? 0.0f : 1.0f;
    glTexCoord2f(u0, 0.0f);
    glVertex3f(beamQuad[0], beamQuad[1], z);
    glTexCoord2f(u1, 0.0f);
    glVertex3f(beamQuad[2], beamQuad[3], z);
    glTexCoord2f(u1, 1.0f);
    glVertex3f(beamQuad[4], beamQuad[5], z);
    glTexCoord2f(u0, 1.0f);
    glVertex3f(beamQuad[6], beamQuad[7], z);
}

void Renderer::drawBeam(const Vector& from, const Vector& to, float z, float w, bool wrap, bool flip)
{
    computeBeamQuad(beamQuad, from, to, w);
    if (wrap)
        glBegin(GL_QUADS);
    emitBeamQuad(z, flip);
    if (wrap)
        glEnd();
}

void Renderer::drawBeam(const Vector& from, const Vector& to, float z, float w, bool wrap)
{
    drawBeam(from, to, z, w, wrap, false);
}

void Renderer::drawTiledBeam(const Vector& from, const Vector& to, float z, float w,
                             float tileLength, bool wrap, bool flip)
{
    glEnable(GL_DEPTH_TEST);
    if (wrap)
        glBegin(GL_QUADS);
    for (const auto& segment : tiledBeamSegments(from, to, tileLength))
        drawBeam(segment.first, segment.second, z, w, false, flip);
    drawBeam(from, to, z, w, false, flip);
    if (wrap)
        glEnd();
}

void Renderer::drawTiledBeam(const Vector& from, const Vector& to, float z, float w,
                             float tileLength, bool wrap)
{
    drawTiledBeam(from, to, z, w, tileLength, wrap, false);
}

std::vector<std::pair<Vector, Vector>> Renderer::tiledBeamSegments(const Vector& from,
                                                                   const Vector& to,
                                                                   float tileLength)
{
    std::vector<std::pair<Vector, Vector>> segments;
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    const float lengthSquared = dx * dx + dy * dy;
    const float length = std::sqrt(lengthSquared);
    if (!(tileLength > 0.0f) || !(length > 0.0f) || !std::isfinite(length))
        return segments;
    // Absurdly short tiles would make millions of quads; never more than this many.
    constexpr float maxSegments = 4096.0f;
    const float tile = std::max(tileLength, length / maxSegments);
    const Vector step(dx / length * tile, dy / length * tile);
    Vector previous(from.x, from.y, 0.0f);
    bool done = false;
    while (!done) {
        Vector current(previous.x + step.x, previous.y + step.y, 0.0f);
        const float cx = current.x - from.x;
        const float cy = current.y - from.y;
        if (cx * cx + cy * cy > lengthSquared) {
            current = Vector(to.x, to.y, 0.0f);
            done = true;
        }
        segments.emplace_back(previous, current);
        previous = current;
    }
    return segments;
}

void Renderer::emitBodyPolygon(const Body& body, bool textured)
{
    const auto& vertices = body.localVertices;
    if (vertices.empty())
        return;
    const size_t colourCount = body.colours.size();
    const size_t texCount = body.texCoords.size();
    auto emit = [&](size_t i) {
        if (i < colourCount)
            setColour(body.colours[i]);
        if (textured && i < texCount)
            glTexCoord2f(body.texCoords[i].u, body.texCoords[i].v);
        glVertex2f(vertices[i].x, vertices[i].y);
    };
    glBegin(GL_TRIANGLE_FAN);
    for (size_t i = 0; i < vertices.size(); ++i)
        emit(i);
    emit(0);
    glEnd();
}

void Renderer::drawBodyString(Body& body, bool black)
{
    if (varInt(rbodyString) != 1 || !fontRenderer)
        return;
    const std::string text = body.type + " " + body.id +
                             (body.mass >= Body::minMass ? (black ? " : Movable" : ": Movable")
                                                         : (black ? " : Unmovable" : ": Unmovable")) +
                             " " + std::to_string(body.renderpos.z + body.zShift);
    if (black)
        setColour(0.0f, 0.0f, 0.0f);
    else
        setColour(255.0f, 255.0f, 255.0f);
    fontRenderer->selectFont("vera", 12);
    fontRenderer->drawText(body.renderpos.x, body.renderpos.y + 24.0f, text);
}

bool Renderer::placeBody(const Body& body, bool untextured)
{
    constexpr float radiansToDegrees = 180.0f / 3.1415927f;
    glPushMatrix();
    glTranslatef(body.renderpos.x, body.renderpos.y, body.renderpos.z + body.zShift);
    glRotatef(body.rotation * radiansToDegrees, 0.0f, 0.0f, 1.0f);
    const bool textured = body.textured && !body.texture.empty() && !untextured;
    setTexturing(textured);
    setBlending(textured);
    if (textured)
        setAlphaBlend();
    return textured;
}

void Renderer::drawBody(Body& body)
{
    if (varInt(drawBodies) <= 0)
        return;
    if (body.isText()) {
        body.drawText(*this);
        return;
    }
    if (!body.visible)
        return;
    // In the glow capture a body without glow only blacks out what is behind
    // it; an opaque one does that whatever its texture, so none is sampled.
    const bool blackOut = capturing && !body.hasGlow && frameReuse && isOpaque(body);
    const bool textured = placeBody(body, blackOut);
    if (textured) {
        const bool clamp = body.drawsTextureOnce();
        if (varInt(cacheTextureIds) < 1) {
            bindTexture(body.texture, clamp);
        } else if (body.textureId < 0) {
            bindTexture(body.texture, clamp);
            body.textureId = getTextureId(body.texture);
        } else {
            bindTextureId(body.textureId);
        }
        // Textures are shared, so each body states its own wrap mode.
        setWrap(clamp);
        // A body that covers what is behind it wholly needs no blending and no
        // alpha test: the result is the same, and costs less per pixel.
        const bool opaque = frameReuse && isOpaque(body);
        setBlending(!opaque);
        setSpriteAlphaTest(!opaque);
    }

    // Only glowing bodies light the glow capture; the rest hide what is
    // behind them there, so the picture around them stays sharp.
    const bool darkenCapture = capturing && !body.hasGlow;
    if (darkenCapture) {
        setBlending(true);
        glBlendFunc(GL_ZERO, GL_ONE_MINUS_SRC_ALPHA);
    }

    const bool liquid = body.isLiquid();
    if (liquid) {
        float shiftU = 0.0f, shiftV = 0.0f, scaleU = 1.0f, scaleV = 1.0f;
        body.liquidTextureMotion(shiftU, shiftV, 0.0f, 0.0f, scaleU, scaleV);
        glMatrixMode(GL_TEXTURE);
        glLoadIdentity();
        glTranslatef(shiftU, shiftV, 0.0f);
        glScalef(scaleU, scaleV, 1.0f);
        glMatrixMode(GL_MODELVIEW);
    }

    emitBodyPolygon(body, textured);
    if (textured) {
        setSpriteAlphaTest(false);
        setWrap(false);
    }

    if (body.outlined && varInt(drawOutlines) != 0 && !capturing && body.localVertices.size() > 1) {
        setColour(body.outlineColour);
        glDisable(GL_DEPTH_TEST);
        setAlphaBlend();
        setBlending(true);
        setTexturing(true);
        bindTexture("data/particles/brightpart.tga");
        const auto& v = body.localVertices;
        for (size_t i = 0; i + 1 < v.size(); ++i)
            drawBeam(v[i], v[i + 1], 0.001f, 2.0f, true, true);
        glEnable(GL_DEPTH_TEST);
    }

    glPopMatrix();
    if (darkenCapture)
        setAlphaBlend();
    if (liquid) {
        glMatrixMode(GL_TEXTURE);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
    }
    body.drawExtras(*this);
    drawBodyString(body, false);
}

bool Renderer::isOpaque(const Body& body)
{
    const Texture* texture = textures.find(body.texture);
    if (!texture || texture->bitsPerPixel != 24 || body.colours.size() < body.localVertices.size())
        return false;
    for (const RGBAColour& c : body.colours)
        if (toByte(c.a) != 255)
            return false;
    return true;
}

void Renderer::drawBodySimple(Body& body)
{
    if (!body.visible)
        return;
    const bool textured = placeBody(body);
    if (textured) {
        bindTexture(body.texture, body.drawsTextureOnce());
        setWrap(body.drawsTextureOnce());
    }
    if (capturing) {
        // Opaque bodies darken the glow capture where they stand.
        setBlending(true);
        glBlendFunc(GL_ZERO, GL_ONE_MINUS_SRC_ALPHA);
    }
    emitBodyPolygon(body, textured);
    if (textured)
        setWrap(false);

    if (body.outlined && varInt(drawOutlines) != 0 && !capturing && !body.localVertices.empty()) {
        GLfloat previousWidth = 1.0f;
        glGetFloatv(GL_LINE_WIDTH, &previousWidth);
        setTexturing(false);
        setColour(body.outlineColour);
        glLineWidth(static_cast<float>(std::max(body.outlinewidth, 1)));
        glBegin(GL_LINE_LOOP);
        for (const Vector& v : body.localVertices)
            glVertex3f(v.x, v.y, v.z + 0.1f);
        glEnd();
        glLineWidth(previousWidth);
    }
    glPopMatrix();
    if (capturing)
        setAlphaBlend();
    body.drawExtras(*this);
    drawBodyString(body, true);
}
