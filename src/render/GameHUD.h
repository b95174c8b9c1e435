#pragma once
// The game's heads-up display as the gameplay code talks to it: the player it
// shows, timed message lines and pickup messages. This version keeps the
// messages and draws them as plain text; the full panel layout replaces the
// drawing without changing what gameplay calls.
#include <string>
#include <vector>

class IRenderer;
class Player;

class GameHUD {
public:
    struct Message {
        std::string text;
        int size = 14;
        float expiresAt = 0.0f;  // level time, ms
    };

    virtual ~GameHUD() = default;

    // Once, when the controller starts.
    virtual void init() {}
    virtual void resize(int width, int height);
    // The player to show; null while no level runs.
    virtual void setPlayer(Player* p) { player = p; }
    Player* getPlayer() const { return player; }
    // Every simulation step: drops expired messages.
    virtual void update(float stepTime);
    virtual void draw(IRenderer* renderer, float frameTime);
    // A message line shown for two seconds.
    virtual void showMessage(const std::string& text, int size = 18);
    // The short line shown when something is picked up.
    virtual void pickupMessage(const std::string& text) { showMessage(text, 14); }
    virtual void clearMessages() { messages.clear(); }
    // A level starts: nothing carries over.
    virtual void levelReset() { clearMessages(); }

    const std::vector<Message>& getMessages() const { return messages; }
    // The most recent message, "" when none is showing.
    std::string lastMessage() const { return messages.empty() ? std::string() : messages.back().text; }

    static constexpr float messageMs = 2000.0f;

private:
    Player* player = nullptr;
    std::vector<Message> messages;
    int screenWidth = 640;
    int screenHeight = 480;
};
