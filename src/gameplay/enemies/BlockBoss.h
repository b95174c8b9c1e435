#pragma once
// The block boss: a floating fortress with a rocket launcher and a shotgun
// that no gun can hurt. Only the coloured boss blocks the player shoves into
// it do damage, and only the block whose colour matches its current damage
// state, which cycles every 10 s. Every 20 s it calls reinforcements by
// firing the bodies named "adds1" and "adds2" in turn. It fights only while
// the player is in its arena ("arenaleft" to "arenaright", or 800 units
// either side of where it starts) and never leaves it.
#include <memory>

#include "gameplay/enemies/EnemyBase.h"

class RocketWeapon;
class ShotgunWeapon;

class BlockBoss : public EnemyBase {
public:
    static constexpr int bossBlockDamageType = 2048;
    static constexpr float stateMillis = 10000.0f;
    static constexpr float addsMillis = 20000.0f;
    static constexpr float painMillis = 500.0f;
    static constexpr float defaultArenaHalfWidth = 800.0f;
    // Once fighting, a player blown this far out of the arena still counts
    // as in it, so a blast at the door does not stop the fight.
    static constexpr float engagedMargin = 256.0f;
    // No more reinforcements while this many enemies fight in the arena.
    static constexpr int maxEnemiesInArena = 6;
    // A block must be moving into the boss this fast to hurt it, so blocks
    // the boss itself bumps into do nothing.
    static constexpr float minBlockSpeed = 8.0f;

    BlockBoss();
    ~BlockBoss() override;
    std::unique_ptr<Body> clone() const override;
    void readAttributes(const std::map<std::string, std::string>& attrs) override;
    void readState(TiXmlElement* element) override;
    void writeState(TiXmlElement* element) override;
    void think(float dt) override;
    // Blocks of the matching colour hurt it.
    void onTouch(TouchInfo& info) override;
    // Only boss-block damage counts.
    bool canBeDamagedBy(int damageType) override;

    // Damage a matching block does in each state.
    static int blockDamage(int state);

    float nextPain = 0.0f;
    float nextDamageSwitch = stateMillis;
    float nextAdds = addsMillis;
    int addLevel = 0;
    int damageState = 0;
    // The arena's x range; set from the attributes or on the first think.
    float arenaLeft = 0.0f;
    float arenaRight = 0.0f;
    bool arenaSet = false;
    bool engaged = false;
    // Ids of the bodies fired for reinforcements ("adds1", "adds2").
    std::string adds[2];
    std::unique_ptr<RocketWeapon> rockets;
    std::unique_ptr<ShotgunWeapon> shotgun;

private:
    void showState();
    bool inArena(float x, float margin = 0.0f) const
    {
        return x >= arenaLeft - margin && x <= arenaRight + margin;
    }
    int enemiesInArena() const;
    // Fires the body named by adds[addLevel], if there is one.
    void callReinforcements();
};
