#pragma once
// A lamp that sweeps a cone of light between two angles, pausing at each
// end. A visible player caught in the cone fires the light's targets (alarms,
// doors, spawners), at most once per "untriggertimer" ms while it stays lit.
#include <vector>

#include "gameplay/enemies/EnemyBase.h"

class SearchLight : public EnemyBase {
public:
    // Beyond this the light does not look for the player at all.
    static constexpr float watchRange = 512.0f;

    SearchLight();
    std::unique_ptr<Body> clone() const override;
    // "startangle", "endangle", "minangle", "speed", "conewidth",
    // "conelength", "untriggertimer", "timepaused".
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    // The sweep, once per physics step.
    void step(float dt) override;
    // Looks for the player in the cone.
    void think(float dt) override;
    // The EnemyBase record, then the targets when the untrigger time is over.
    void setSighted(Body* body) override;
    void sightedChanged() override;
    // The cone as a soft translucent fan.
    void drawExtras(IRenderer& renderer) override;

    // The unit vector the beam points along at angle `degrees`.
    static Vector beamDirection(float degrees);
    // The light's position and the two far corners of the cone.
    std::vector<Vector> cone() const;
    // Whether a circle overlaps the cone triangle.
    bool inCone(const Vector& centre, float circleRadius) const;

    int startangle = 0;
    int endangle = 90;
    int minangle = -90;
    float speed = 30.0f;
    float conewidth = 48.0f;
    float conelength = 256.0f;
    float untriggertimer = 2000.0f;
    float timepaused = 1000.0f;
    float currentangle = 0.0f;
    // True while sweeping towards endangle.
    bool direction = true;
    float untriggertime = 0.0f;
    float pausedUntil = 0.0f;
};
