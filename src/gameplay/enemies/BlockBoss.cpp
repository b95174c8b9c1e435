#include "gameplay/enemies/BlockBoss.h"

#include <algorithm>
#include <cstdio>

#include <tinyxml.h>

#include "core/Game.h"
#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/player/Player.h"
#include "gameplay/weapons/RocketWeapon.h"
#include "gameplay/weapons/ShotgunWeapon.h"
#include "world/level/LevelValues.h"
#include "world/movers/BossBlock.h"

namespace {
constexpr float chaseSpeed = 100.0f;
constexpr float stopDistance = 8.0f;
constexpr float rocketRange = 220.0f;
constexpr float shotgunRange = 128.0f;
}

BlockBoss::BlockBoss()
    : rockets(std::make_unique<RocketWeapon>()), shotgun(std::make_unique<ShotgunWeapon>())
{
    type = "blockboss";
    health = initialhealth = maxhealth = 1000;
    cashMin = cashMax = 15;
    cashChance = 100;
    patrolSpeed = 32.0f;
    startPatrol();
    rockets->delay = 500.0f;
    rockets->speed = 400.0f;
    rockets->projectileDamage = 10.0f;
    rockets->radius = 64.0f;
    rockets->rocketKnockback = 1.0f;
    rockets->enemyWeapon = true;
    shotgun->delay = 800.0f;
    shotgun->numShots = 4;
    shotgun->damage = 5;
    shotgun->knockback = 8.0f;
    shotgun->enemyWeapon = true;
    showState();
}

BlockBoss::~BlockBoss() = default;

std::unique_ptr<Body> BlockBoss::clone() const { return std::make_unique<BlockBoss>(); }

int BlockBoss::blockDamage(int state) { return 75 + 25 * state; }

void BlockBoss::showState() { setImage("data/images/blockboss" + std::to_string(damageState + 1) + ".png"); }

void BlockBoss::readAttributes(const std::map<std::string, std::string>& attrs)
{
    EnemyBase::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "adds1"))
            adds[0] = value;
        else if (sameName(name, "adds2"))
            adds[1] = value;
        else if (sameName(name, "arenaleft"))
            arenaLeft = readFloat(value);
        else if (sameName(name, "arenaright"))
            arenaRight = readFloat(value);
    }
}

void BlockBoss::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    if (!element)
        return;
    nextPain = readFloat(attributeText(element, "nextpain"));
    nextDamageSwitch = readFloat(attributeText(element, "nextdamageswitch"));
    nextAdds = readFloat(attributeText(element, "nextadds"));
    addLevel = readInt(attributeText(element, "addlevel")) == 1 ? 1 : 0;
    const int state = readInt(attributeText(element, "damagestate"));
    damageState = state >= 0 && state <= 2 ? state : 0;
    showState();
}

void BlockBoss::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    if (!element)
        return;
    element->SetAttribute("nextpain", writeFloat(nextPain));
    element->SetAttribute("nextdamageswitch", writeFloat(nextDamageSwitch));
    element->SetAttribute("nextadds", writeFloat(nextAdds));
    element->SetAttribute("addlevel", writeInt(addLevel));
    element->SetAttribute("damagestate", writeInt(damageState));
}

bool BlockBoss::canBeDamagedBy(int damageType) { return damageType == bossBlockDamageType; }

void BlockBoss::onTouch(TouchInfo& info)
{
    EnemyBase::onTouch(info);
    auto* block = dynamic_cast<BossBlock*>(info.other);
    if (!block || block->type != "bossblock" || dying || inlimbo)
        return;
    const float t = now();
    if (nextPain >= t || block->blocktype != damageState)
        return;
    float distance = 0.0f;
    const Vector u = EnemyEffects::towards(block->pos, pos, distance);
    if (block->vel.x * u.x + block->vel.y * u.y < minBlockSpeed)
        return;
    takeDamage(blockDamage(damageState), bossBlockDamageType);
    nextPain = t + painMillis;
}

void BlockBoss::callReinforcements()
{
    Game* game = Game::current();
    const std::string& name = adds[addLevel];
    if (!game || name.empty())
        return;
    // Looked up each time, so a removed body is never fired through a stale link.
    for (Body* body : game->getBodies()) {
        auto* target = dynamic_cast<GameBody*>(body);
        if (target && target != this && !target->cancleanup && target->id == name) {
            std::printf("Block boss calls reinforcements: %s\n", name.c_str());
            target->onTriggered(this);
            return;
        }
    }
}

int BlockBoss::enemiesInArena() const
{
    Game* game = Game::current();
    if (!game)
        return 0;
    int n = 0;
    for (Body* body : game->getBodies()) {
        const auto* enemy = dynamic_cast<const EnemyBase*>(body);
        if (enemy && enemy != this && !enemy->cancleanup && !enemy->dying && !enemy->inlimbo &&
            inArena(enemy->pos.x))
            ++n;
    }
    return n;
}

void BlockBoss::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo)
        return;
    const float t = now();
    if (!arenaSet) {
        arenaSet = true;
        if (arenaRight <= arenaLeft) {
            arenaLeft = pos.x - defaultArenaHalfWidth;
            arenaRight = pos.x + defaultArenaHalfWidth;
        }
    }
    Player* player = targetPlayer();
    engaged = player && inArena(player->pos.x, engaged ? engagedMargin : 0.0f);
    if (!engaged) {
        // Waits for the player: it holds still and its clocks wait too.
        vel = Vector();
        nextDamageSwitch = std::max(nextDamageSwitch, t + stateMillis);
        nextAdds = std::max(nextAdds, t + addsMillis);
        return;
    }
    float distance = 0.0f;
    const Vector u = EnemyEffects::towards(pos, player->pos, distance);
    if (distance < stopDistance)
        vel = Vector();
    else
        steer(vel, u, chaseSpeed, chaseSpeed);
    if (distance < rocketRange && canSee(false)) {
        rockets->fire(this, pos, u, t);
        if (distance < shotgunRange)
            shotgun->fire(this, pos, u, t);
    }
    patrol(t);
    // Back inside when chasing or patrolling took it to the arena's edge.
    if (pos.x - radius < arenaLeft && vel.x < 0.0f)
        vel.x = patrolSpeed;
    else if (pos.x + radius > arenaRight && vel.x > 0.0f)
        vel.x = -patrolSpeed;

    if (t > nextDamageSwitch) {
        damageState = (damageState + 1) % 3;
        showState();
        std::printf("Block boss damage state %d\n", damageState);
        nextDamageSwitch = t + stateMillis;
    }
    if (t > nextAdds) {
        if (enemiesInArena() < maxEnemiesInArena)
            callReinforcements();
        addLevel = 1 - addLevel;
        nextAdds = t + addsMillis;
    }
}
