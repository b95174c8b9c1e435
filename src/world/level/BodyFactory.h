#pragma once
// Turns a level file's type names into bodies. A factory keeps one prototype
// per registered type and clones it on request; names it does not know go to
// its fallback factory, and when nobody knows them the caller gets a plain
// static Body (so a level with a typo still loads, with a line in the log).
#include <memory>
#include <string>
#include <vector>

class Body;

class BodyFactory {
public:
    BodyFactory() = default;
    BodyFactory(const BodyFactory&) = delete;
    BodyFactory& operator=(const BodyFactory&) = delete;
    // Deletes the prototypes.
    virtual ~BodyFactory();

    // Fills the prototype list; called once right after construction by the
    // owner. This one registers a plain Body ("default"); derived factories
    // replace the list with their own table and need not call the base.
    virtual void registerPrototypes();
    // Appends a prototype; its type name is the key create() matches.
    virtual void addPrototype(std::unique_ptr<Body> prototype);
    // A new body for the type name (exact, case-sensitive match). Unknown
    // names go to the fallback factory, then fall back to a plain Body after
    // "Defaulting to Body for: <name>" on standard output. Never null.
    virtual std::unique_ptr<Body> create(const std::string& typeName);
    // Asked for names this factory does not know; not owned.
    virtual void setFallbackFactory(BodyFactory* factory);

    const std::vector<std::unique_ptr<Body>>& getPrototypes() const { return prototypes; }
    BodyFactory* getFallbackFactory() const { return fallback; }
    // The prototype registered under the name, or null.
    const Body* findPrototype(const std::string& typeName) const;

private:
    std::vector<std::unique_ptr<Body>> prototypes;
    BodyFactory* fallback = nullptr;
    bool askingFallback = false;
};
