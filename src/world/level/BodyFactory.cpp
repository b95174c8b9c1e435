#include "world/level/BodyFactory.h"

#include <cstdio>

#include "world/body/Body.h"

BodyFactory::~BodyFactory() = default;

void BodyFactory::registerPrototypes() { addPrototype(std::make_unique<Body>()); }

void BodyFactory::addPrototype(std::unique_ptr<Body> prototype)
{
    if (prototype)
        prototypes.push_back(std::move(prototype));
}

const Body* BodyFactory::findPrototype(const std::string& typeName) const
{
    for (const auto& prototype : prototypes)
        if (prototype->type == typeName)
            return prototype.get();
    return nullptr;
}

std::unique_ptr<Body> BodyFactory::create(const std::string& typeName)
{
    std::unique_ptr<Body> body;
    if (const Body* prototype = findPrototype(typeName))
        body = prototype->clone();
    // A factory that is already asking its fallback does not ask again, so a
    // chain that loops back answers with a plain Body instead of recursing.
    if (!body && fallback && !askingFallback) {
        askingFallback = true;
        body = fallback->create(typeName);
        askingFallback = false;
    }
    if (!body) {
        std::printf("Defaulting to Body for: %s\n", typeName.c_str());
        body = std::make_unique<Body>();
    }
    return body;
}

void BodyFactory::setFallbackFactory(BodyFactory* factory) { fallback = factory; }
