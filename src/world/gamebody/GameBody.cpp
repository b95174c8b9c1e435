#include "world/gamebody/GameBody.h"

#include <tinyxml.h>

#include <algorithm>
#include <climits>

#include "core/Game.h"
#include "gameplay/projectiles/Gib.h"
#include "gameplay/GameplaySingleton.h"
#include "particles/ParticleManager.h"
#include "particles/TextParticleSystem.h"
#include "world/level/LevelValues.h"

GameBody::GameBody()
{
    type = "gamebody";
    entity = true;
    normaliseTexCoords = true;
}

GameBody::~GameBody()
{
    // Nobody may keep pointing at a deleted body: owned bodies forget us, and
    // an owner still alive counts one body fewer.
    for (GameBody* child : ownedBodies)
        if (child && child->owner == this)
            child->owner = nullptr;
    ownedBodies.clear();
    if (owner) {
        GameBody* formerOwner = owner;
        owner = nullptr;
        formerOwner->removeOwned(this);
    }
}

std::unique_ptr<Body> GameBody::clone() const { return std::make_unique<GameBody>(); }

float GameBody::now() { return levelTime(); }

void GameBody::addHealth(int n)
{
    // Wide sums: a level's amount may be anything an int holds.
    const long long sum = static_cast<long long>(health) + n;
    health = static_cast<int>(std::clamp<long long>(sum, INT_MIN, maxhealth));
}

void GameBody::takeDamage(int amount, int damageType)
{
    if (dying || inlimbo)
        return;
    if (showdamage)
        showDamage();
    if (!takedamage || godMode || !canBeDamagedBy(damageType))
        return;

    int d = adjustDamage(amount, damageType);
    if (hasinvinc) {
        d = static_cast<int>(damagetakenfactor * static_cast<float>(d));
        if (d == 0)
            return;
    }
    if (d < 0) {
        // Negative pain heals, but never past the cap.
        if (health < maxhealth)
            addHealth(static_cast<int>(std::min<long long>(-static_cast<long long>(d), maxhealth)));
        return;
    }
    int absorbed = 0;
    absorbArmour(d, absorbed);
    health -= d - absorbed;
    if (health < 1)
        die();
}

bool GameBody::canBeDamagedBy(int) { return true; }

int GameBody::adjustDamage(int amount, int) { return amount; }

void GameBody::setHealth(int n) { health = n; }

int GameBody::getHealth() const { return health; }

void GameBody::addArmour(int n)
{
    const long long sum = static_cast<long long>(armour) + n;
    armour = static_cast<int>(std::clamp<long long>(sum, 0, std::max(maxarmour, 0)));
}

int GameBody::absorbArmour(int n, int& absorbed)
{
    const int before = armour;
    if (n > 0)
        armour = std::max(armour - n, 0);
    absorbed = before - armour;
    return absorbed;
}

void GameBody::setArmour(int n) { armour = n; }

int GameBody::getArmour() const { return armour; }

void GameBody::removeOwned(GameBody* body)
{
    auto it = std::find(ownedBodies.begin(), ownedBodies.end(), body);
    if (it != ownedBodies.end())
        ownedBodies.erase(it);
    numalive -= 1;
}

void GameBody::releaseOwned()
{
    for (GameBody* child : ownedBodies)
        if (child)
            child->owner = nullptr;
    ownedBodies.clear();
}

void GameBody::adopt(GameBody* child)
{
    if (!child || child == this)
        return;
    child->owner = this;
    ownedBodies.push_back(child);
}

void GameBody::die()
{
    if (dying || inlimbo)
        return;
    numlives -= 1;
    dying = true;
    deathtime = deathdelay + now();
    if (owner && numlives < 1) {
        GameBody* formerOwner = owner;
        owner = nullptr;
        formerOwner->removeOwned(this);
    }
    if (numlives < 1)
        releaseOwned();
    deathEffects();
    if (numlives < 1) {
        inlimbo = false;
        triggerTargets();
        if (Game* game = Game::current())
            game->markForRemoval(this);
        else
            cancleanup = true;
        return;
    }
    dying = false;
    vel = Vector();
    visible = false;
    solid = false;
    inlimbo = true;
    revivetime = now() + limboMillis;
}

void GameBody::think(float)
{
    if (!inlimbo)
        return;
    vel = Vector();
    visible = false;
    if (revivetime < now()) {
        visible = true;
        inlimbo = false;
        health = initialhealth;
        dying = false;
        solid = true;
    }
}

void GameBody::deathEffects()
{
    if (!showdamage)
        return;
    startEffect("debugbloodexplosion");
    startEffect("deathghost");
    // A violent death throws gibs. Derived classes add their own effects.
    if (gibbable && health < -10)
        Gib::spawnGibs(pos, 100.0f, 200.0f, 8.0f, 10.0f);
}

void GameBody::showDamage() { startEffect("debugblood"); }

ParticleSystem* GameBody::startEffect(const std::string& name, const Vector& at)
{
    Game* game = Game::current();
    ParticleManager* particles = game ? game->getParticleManager() : nullptr;
    ParticleSystem* system = particles ? particles->createSystem(name) : nullptr;
    if (!system)
        return nullptr;
    system->setEndpoints(at, at);
    system->emitInitial();
    return system;
}

ParticleSystem* GameBody::startEffect(const std::string& name)
{
    return startEffect(name, Vector(pos.x, pos.y, pos.z + 0.2f));
}

void GameBody::onTriggered(GameBody*) {}

int GameBody::scaleDamage(int n) { return static_cast<int>(damagefactor * static_cast<float>(n)); }

void GameBody::spawnText(const Vector& position, const std::string& text, int size, bool shadow, float scale,
                         const std::string& font)
{
    Game* game = Game::current();
    ParticleManager* particles = game ? game->getParticleManager() : nullptr;
    auto* system = dynamic_cast<TextParticleSystem*>(particles ? particles->createSystem("text") : nullptr);
    if (!system)
        return;
    system->text = text;
    system->fontSize = size;
    system->shadow = shadow;
    system->scale = scale;
    system->font = font;
    const Vector at(position.x, position.y, position.z + 0.2f);
    system->setEndpoints(at, at);
    system->emitAlongSegment();
}

void GameBody::triggerTargets()
{
    // A target may change the list while reacting (rare, but level logic can
    // add targets), so walk a copy.
    if (passingTriggerOn)
        return;
    passingTriggerOn = true;
    const std::vector<Body*> targetsNow = targetList;
    for (Body* target : targetsNow)
        if (auto* gameTarget = dynamic_cast<GameBody*>(target))
            gameTarget->onTriggered(this);
    passingTriggerOn = false;
}

void GameBody::readAttributes(const std::map<std::string, std::string>& attrs)
{
    Body::readAttributes(attrs);
    for (const auto& [name, value] : attrs) {
        if (sameName(name, "health")) {
            health = readInt(value);
            initialhealth = health;
            maxhealth = health;
        } else if (sameName(name, "lives")) {
            numlives = readInt(value);
        }
    }
}

void GameBody::readState(TiXmlElement* element)
{
    Body::readState(element);
    if (!element)
        return;
    auto i = [element](const char* key) { return readInt(attributeText(element, key)); };
    auto f = [element](const char* key) { return readFloat(attributeText(element, key)); };
    auto b = [element](const char* key) { return readBool(attributeText(element, key)); };
    auto t = [element](const char* key) { return readTime(attributeText(element, key)); };
    health = i("health");
    maxhealth = i("maxhealth");
    armour = i("armour");
    maxarmour = i("maxarmour");
    takedamage = b("takedamage");
    showdamage = b("showdamage");
    dying = b("dying");
    deathtime = t("deathtime");
    deathdelay = t("deathdelay");
    nextpaintime = t("nextpaintime");
    notarget = b("notarget");
    numalive = i("numalive");
    maxalive = i("maxalive");
    ownerid = i("ownerid");
    hasquad = b("hasquad");
    quadtime = t("quadtime");
    damagefactor = f("damagefactor");
    hasinvinc = b("hasinvinc");
    invinctime = t("invinctime");
    damagetakenfactor = f("damagetakenfactor");
    numlives = i("numlives");
    inlimbo = b("inlimbo");
    revivetime = t("revivetime");
    initialhealth = i("initialhealth");
}

void GameBody::writeState(TiXmlElement* element)
{
    Body::writeState(element);
    if (!element)
        return;
    element->SetAttribute("health", writeInt(health));
    element->SetAttribute("maxhealth", writeInt(maxhealth));
    element->SetAttribute("armour", writeInt(armour));
    element->SetAttribute("maxarmour", writeInt(maxarmour));
    element->SetAttribute("takedamage", writeBool(takedamage));
    element->SetAttribute("showdamage", writeBool(showdamage));
    element->SetAttribute("dying", writeBool(dying));
    element->SetAttribute("deathtime", writeFloat(deathtime));
    element->SetAttribute("deathdelay", writeFloat(deathdelay));
    element->SetAttribute("nextpaintime", writeFloat(nextpaintime));
    element->SetAttribute("notarget", writeBool(notarget));
    element->SetAttribute("numalive", writeInt(numalive));
    element->SetAttribute("maxalive", writeInt(maxalive));
    element->SetAttribute("ownerid", writeInt(owner ? owner->autoid : 0));
    element->SetAttribute("hasquad", writeBool(hasquad));
    element->SetAttribute("quadtime", writeFloat(quadtime));
    element->SetAttribute("damagefactor", writeFloat(damagefactor));
    element->SetAttribute("hasinvinc", writeBool(hasinvinc));
    element->SetAttribute("invinctime", writeFloat(invinctime));
    element->SetAttribute("damagetakenfactor", writeFloat(damagetakenfactor));
    element->SetAttribute("numlives", writeInt(numlives));
    element->SetAttribute("inlimbo", writeBool(inlimbo));
    element->SetAttribute("revivetime", writeFloat(revivetime));
    element->SetAttribute("initialhealth", writeInt(initialhealth));
}

void GameBody::leaveOwner()
{
    if (!owner)
        return;
    auto& siblings = owner->ownedBodies;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    owner = nullptr;
}

void GameBody::beforeTargets()
{
    leaveOwner();
    if (ownerid == 0)
        return;
    Game* game = Game::current();
    if (!game)
        return;
    for (Body* body : game->getBodies()) {
        auto* candidate = dynamic_cast<GameBody*>(body);
        if (candidate && candidate != this && candidate->autoid == ownerid) {
            candidate->adopt(this);
            return;
        }
    }
}
