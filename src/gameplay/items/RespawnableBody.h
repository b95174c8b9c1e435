#pragma once
// The base of every pickup: the player collects it by touching it while it
// is visible; it then hides and comes back respawnDelay milliseconds of level
// time later with a flash and a sound. Subclasses say what touching gives.
#include <map>
#include <string>

#include "world/gamebody/GameBody.h"

class Player;

class RespawnableBody : public GameBody {
public:
    RespawnableBody();
    std::unique_ptr<Body> clone() const override;

    // Hides the pickup and schedules its return.
    virtual void pickUp();
    // Shows it again with the respawn effect and sound.
    virtual void respawn();
    // The pickup's own rule for a live player touching it while available;
    // true when it was taken (the base then hides it). False here.
    virtual bool giveTo(Player& player);

    // Respawn once the delay has passed.
    void think(float dt) override;
    void onTouch(TouchInfo& info) override;
    // The player walks through pickups; everything else still holds them up.
    bool collidesWith(Body* other) override;
    // "respawndelay" and "amount".
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;

    // The value of a level attribute matched without regard to case, or null.
    static const std::string* findAttribute(const std::map<std::string, std::string>& attrs,
                                            const std::string& name);

    float respawnDelay = 5000.0f;
    float nextRespawn = 0.0f;
    bool respawns = true;
    int amount = 0;

protected:
    // The usual feedback: a sound at the pickup, the HUD pickup line and a
    // floating text.
    void announce(int soundId, const std::string& text);
};
