// The Renderer's primitives: colours, quads, images, sprites, polygons, lines and the scissor.
#include "render/Renderer.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

#include "render/RendererColour.h"
#include "world/geometry/Quad.h"
#include "world/geometry/RGBAColour.h"

void Renderer::setColour(float r, float g, float b) { glColor4ub(toByte(r), toByte(g), toByte(b), 255); }

void Renderer::setColour(float r, float g, float b, float a)
{
    glColor4ub(toByte(r), toByte(g), toByte(b), toByte(a));
}

void Renderer::setColour(const RGBAColour& c) { setColour(c.r, c.g, c.b, c.a); }

void Renderer::drawQuad(float x, float y, float z, float w, float h)
{
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 1.0f);
    glVertex3f(x, y, z);
    glTexCoord2f(1.0f, 1.0f);
    glVertex3f(x + w, y, z);
    glTexCoord2f(1.0f, 0.0f);
    glVertex3f(x + w, y - h, z);
    glTexCoord2f(0.0f, 0.0f);
    glVertex3f(x, y - h, z);
    glEnd();
}

void Renderer::drawQuad(const Quad& quad)
{
    glBegin(GL_QUADS);
    for (const auto& v : quad.corners) {
        glColor4ub(toByte(v->r), toByte(v->g), toByte(v->b), toByte(v->a));
        glTexCoord2f(v->u, v->v);
        glVertex3f(v->x, v->y, v->z);
    }
    glEnd();
}

void Renderer::drawTexturePart(float x, float y, float z, float w, float h)
{
    float texWidth = static_cast<float>(textures.getWidth(currentTextureName));
    float texHeight = static_cast<float>(textures.getHeight(currentTextureName));
    if (texWidth <= 0.0f || texHeight <= 0.0f)
        texWidth = texHeight = 1.0f;
    glBegin(GL_QUADS);
    glTexCoord2f(x / texWidth, y / texHeight);
    glVertex3f(x, y, z);
    glTexCoord2f((x + w) / texWidth, y / texHeight);
    glVertex3f(x + w, y, z);
    glTexCoord2f((x + w) / texWidth, (y - h) / texHeight);
    glVertex3f(x + w, y - h, z);
    glTexCoord2f(x / texWidth, (y - h) / texHeight);
    glVertex3f(x, y - h, z);
    glEnd();
}

void Renderer::drawCentredQuad(float cx, float cy, float z, float halfW, float halfH, bool wrap)
{
    if (wrap)
        glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 1.0f);
    glVertex3f(cx - halfW, cy + halfH, z);
    glTexCoord2f(1.0f, 1.0f);
    glVertex3f(cx + halfW, cy + halfH, z);
    glTexCoord2f(1.0f, 0.0f);
    glVertex3f(cx + halfW, cy - halfH, z);
    glTexCoord2f(0.0f, 0.0f);
    glVertex3f(cx - halfW, cy - halfH, z);
    if (wrap)
        glEnd();
}

void Renderer::beginQuads() { glBegin(GL_QUADS); }

void Renderer::endQuads() { glEnd(); }

void Renderer::drawImage(float x, float y, float z, float w, float h, const std::string& name,
                         bool additive, bool clamp)
{
    setTexturing(true);
    setBlending(true);
    if (additive)
        setAdditiveBlend();
    else
        setAlphaBlend();
    bindTexture(name, clamp);
    drawQuad(x, y, z, w, h);
}

void Renderer::drawImage(float x, float y, float z, float w, float h, const std::string& name)
{
    drawImage(x, y, z, w, h, name, false, false);
}

void Renderer::drawSprite(float cx, float cy, float z, float w, float h, const std::string& name)
{
    drawTintedSprite(cx, cy, z, w, h, name, RGBAColour(255.0f, 255.0f, 255.0f, 255.0f));
}

void Renderer::drawTintedSprite(float cx, float cy, float z, float w, float h, const std::string& name,
                                const RGBAColour& colour)
{
    setBlending(true);
    setTexturing(true);
    setAlphaBlend();
    setColour(colour);
    // Sprite art does not tile: clamped, so no edge bleeds in from the far side.
    bindTexture(name, true);
    setWrap(true);
    setSpriteAlphaTest(true);
    drawCentredQuad(cx, cy, z, w * 0.5f, h * 0.5f, true);
    setSpriteAlphaTest(false);
}

void Renderer::setSpriteAlphaTest(bool on)
{
    // Clear pixels must not write depth, or a sprite drawn before something
    // behind it punches a hole the shape of its square.
    if (on) {
        glAlphaFunc(GL_GREATER, spriteAlphaCutoff);
        glEnable(GL_ALPHA_TEST);
    } else {
        glDisable(GL_ALPHA_TEST);
    }
}

void Renderer::setWrap(bool clamp)
{
    const GLint wrap = clamp ? GL_CLAMP_TO_EDGE : GL_REPEAT;
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, wrap);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, wrap);
}

void Renderer::drawPolygon(int count, const std::vector<Vector>& vertices)
{
    const int n = std::min(count, static_cast<int>(vertices.size()));
    if (n <= 0)
        return;
    glBegin(GL_TRIANGLE_FAN);
    for (int i = 0; i < n; ++i)
        glVertex3f(vertices[i].x, vertices[i].y, vertices[i].z);
    glVertex3f(vertices[0].x, vertices[0].y, vertices[0].z);
    glEnd();
}

void Renderer::drawPolygon(int count, const std::vector<Vector>& vertices,
                           const std::vector<RGBAColour>& colours)
{
    const int n = std::min({count, static_cast<int>(vertices.size()), static_cast<int>(colours.size())});
    if (n <= 0)
        return;
    glBegin(GL_TRIANGLE_FAN);
    for (int i = 0; i < n; ++i) {
        setColour(colours[i]);
        glVertex3f(vertices[i].x, vertices[i].y, vertices[i].z);
    }
    setColour(colours[0]);
    glVertex3f(vertices[0].x, vertices[0].y, vertices[0].z);
    glEnd();
}

void Renderer::drawLines(const std::vector<const Quad*>& quads)
{
    glBegin(GL_LINES);
    for (const Quad* quad : quads) {
        if (!quad)
            continue;
        for (const auto& v : quad->corners) {
            glColor4ub(toByte(v->r), toByte(v->g), toByte(v->b), toByte(v->a));
            glVertex3f(v->x, v->y, v->z);
        }
    }
    glEnd();
}

void Renderer::drawLine(float x1, float y1, float x2, float y2, float r, float g, float b, float a)
{
    setColour(r, g, b, a);
    setBlending(false);
    glBegin(GL_LINES);
    glVertex2f(x1, y1);
    glVertex2f(x2, y2);
    glEnd();
}

void Renderer::drawLine(float x1, float y1, float x2, float y2, float lineWidth)
{
    GLfloat previous = 1.0f;
    glGetFloatv(GL_LINE_WIDTH, &previous);
    glLineWidth(lineWidth);
    glBegin(GL_LINES);
    glVertex2f(x1, y1);
    glVertex2f(x2, y2);
    glEnd();
    glLineWidth(previous);
}

void Renderer::drawLines(const Quad& quad)
{
    setBlending(false);
    glBegin(GL_LINES);
    for (const auto& v : quad.corners) {
        glColor4ub(toByte(v->r), toByte(v->g), toByte(v->b), toByte(v->a));
        glVertex3f(v->x, v->y, v->z);
    }
    glEnd();
}

void Renderer::setScissorTest(bool on)
{
    if (on)
        glEnable(GL_SCISSOR_TEST);
    else
        glDisable(GL_SCISSOR_TEST);
}

void Renderer::setScissor(float x, float y, float w, float h)
{
    setScissor(static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)),
               static_cast<int>(std::lround(w)), static_cast<int>(std::lround(h)));
}

void Renderer::setScissor(int x, int y, int w, int h)
{
    if (interfaceScale != 1.0f) {
        const auto scaled = [this](int v) { return static_cast<int>(std::lround(static_cast<float>(v) * interfaceScale)); };
        x = scaled(x);
        y = scaled(y);
        w = scaled(w);
        h = scaled(h);
    }
    glScissor(x, y, std::max(w, 0), std::max(h, 0));
}

void Renderer::setInterfaceScale(float scale)
{
    interfaceScale = scale > 0.0f ? scale : 1.0f;
    if (!in2D)
        return;
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glScalef(interfaceScale, interfaceScale, 1.0f);
}
