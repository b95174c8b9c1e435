#include "gameplay/enemies/BallOfDeath.h"

#include "gameplay/enemies/EnemyEffects.h"
#include "gameplay/player/Player.h"

BallOfDeath::BallOfDeath()
{
    type = "ballofdeath";
    nonmassmover = true;
    restitution = 0.0f;
    vel = Vector();
    alwaysReturns = true;
    setImage("data/images/ballofdeath.png");
}

std::unique_ptr<Body> BallOfDeath::clone() const { return std::make_unique<BallOfDeath>(); }

void BallOfDeath::readAttributes(const std::map<std::string, std::string>& attrs)
{
    EnemyBase::readAttributes(attrs);
    readSlideAttributes(attrs);
}

void BallOfDeath::readState(TiXmlElement* element)
{
    EnemyBase::readState(element);
    readSlideState(element);
}

void BallOfDeath::writeState(TiXmlElement* element)
{
    EnemyBase::writeState(element);
    writeSlideState(element);
}

void BallOfDeath::afterTargets()
{
    EnemyBase::afterTargets();
    // A saved game already knows where the ball was heading.
    const bool restored = startpointSet;
    rememberStart(*this);
    if (!restored)
        beginOpening(*this);
}

void BallOfDeath::think(float dt)
{
    EnemyBase::think(dt);
    if (inlimbo)
        return;
    const float t = now();
    if (slideThink(*this, t))
        closetime = t + timeopen;
    else if (!isopen && !isopening && !isclosing && closetime < t)
        beginOpening(*this);
}

void BallOfDeath::step(float dt)
{
    EnemyBase::step(dt);
    slideStep(*this, dt);
}

void BallOfDeath::onTouch(TouchInfo& info)
{
    EnemyBase::onTouch(info);
    Player* player = currentPlayer();
    if (player && info.other == player && !dying && !inlimbo)
        EnemyEffects::shock(*player, touchDamage, pos);
}
