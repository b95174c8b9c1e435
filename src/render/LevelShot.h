#pragma once

#include <string>
#include <vector>

class Body;

// A picture of a whole level from straight above its plane: every visible
// body, no sky, scaled so the long side has a fixed pixel count.
namespace LevelShot {

constexpr int longSide = 2048;
// World units of empty border around the outermost body.
constexpr float margin = 32.0f;

struct Plan {
    int width = 0, height = 0;      // picture size in pixels
    float left = 0.0f, bottom = 0.0f; // world point at the picture's lower-left corner
    float unitsPerPixel = 1.0f;
};

// "screenshots/<name>.png" for a plain file name (".png" added when missing);
// empty for a name that is blank or could leave the folder.
std::string outputPath(const std::string& name);

// World extent of the visible bodies; false when there is nothing to draw.
bool extent(const std::vector<Body*>& bodies, float& minX, float& minY, float& maxX, float& maxY);

// Picture size and placement for the extent, with the border added.
Plan plan(float minX, float minY, float maxX, float maxY, int side = longSide);

} // namespace LevelShot
