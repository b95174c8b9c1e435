#include "render/LensFlare.h"

#include <algorithm>

#include "render/IRenderer.h"

void LensFlare::draw(IRenderer& renderer) const
{
    const float alpha = std::clamp(visibility, 0.0f, 1.0f) * 255.0f;
    if (alpha <= 0.0f)
        return;
    renderer.setBlending(true);
    renderer.setTexturing(true);
    renderer.setAdditiveBlend();
    renderer.setDepthWrites(false);
    renderer.bindTexture(texture, true);
    // The tinted halo first, then the white sprites along the axis through the centre.
    struct Piece { float along; float scale; };
    const Piece pieces[] = {{1.0f, 1.0f}, {-0.35f, 0.6f}, {-0.9f, 0.25f}};
    renderer.setColour(colour.r, colour.g, colour.b, alpha * 0.6f);
    renderer.drawCentredQuad(position.x, position.y, position.z, baseSize * 3.0f, baseSize * 3.0f, true);
    renderer.setColour(255.0f, 255.0f, 255.0f, alpha);
    for (const Piece& p : pieces) {
        const float half = p.scale * baseSize;
        renderer.drawCentredQuad(position.x * p.along, position.y * p.along, position.z, half, half, true);
    }
    renderer.setDepthWrites(true);
    renderer.setAlphaBlend();
}
