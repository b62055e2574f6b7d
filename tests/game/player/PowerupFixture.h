// A started session (real scenes, HUD boxes and ship at the world's centre) for the powerup
// tests, with the clock, g_rand and g_fader set by the test; tokens are made and registered
// the way an enemy's death does it, and the world's floating messages can be listed.
#pragma once

#include "GameScenesTest.h"
#include "platform/Vorlik.h"
#include "play/GameSession.h"
#include "player/Player.h"
#include "player/Powerup.h"
#include "player/TextIndicator.h"
#include "scene/Fader.h"
#include "scene/Group.h"
#include "scene/Scene2D.h"
#include "scene/Text.h"

#include <gtest/gtest.h>
#include <vector>

class PowerupFixture : public GameScenesTest {
protected:
    static constexpr uint32_t kStart = 100000; // ms on the clock when the session starts
    static constexpr uint32_t kFrameMs = 16;

    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        savedFader = g_fader;
        g_fader = nullptr;
        vorlik::Vorlik::currentTime = kStart;
        vorlik::Vorlik::sync = kFrameMs * 0.001f;
        g_game = new GameSession();
        g_game->start();
        player = g_game->player;
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        g_fader = savedFader;
        GameScenesTest::TearDown();
    }

    // A token of the given kind at rest at at, in g_world and in the session's powerups and
    // actors, as an enemy's death leaves it.
    Powerup* drop(int kind, vorlik::vec2 at)
    {
        auto* token = new Powerup();
        token->kind = kind;
        token->velocity = vorlik::vec2(0, 0);
        token->position = at;
        g_world->add(token->group);
        g_game->powerups.push(token);
        g_game->actors.push(token);
        return token;
    }

    // Moves the clock on by ms and updates only the token (which may delete itself).
    static void step(Powerup* token, uint32_t ms = kFrameMs)
    {
        vorlik::Vorlik::currentTime += ms;
        vorlik::Vorlik::sync = ms * 0.001f;
        token->update();
    }

    // The floating texts whose text is in the world scene, in the session's actor order.
    static std::vector<TextIndicator*> worldMessages()
    {
        std::vector<TextIndicator*> found;
        for (Actor* actor : g_game->actors) {
            auto* indicator = dynamic_cast<TextIndicator*>(actor);
            if (indicator != nullptr && indicator->text->parent == static_cast<Container*>(g_world))
                found.push_back(indicator);
        }
        return found;
    }

    // The one world message there is; fails the test when there is not exactly one.
    static TextIndicator* onlyWorldMessage()
    {
        const std::vector<TextIndicator*> found = worldMessages();
        EXPECT_EQ(found.size(), 1u);
        return found.empty() ? nullptr : found.back();
    }

    static bool listed(Actor* actor)
    {
        for (Actor* a : g_game->actors)
            if (a == actor) return true;
        return false;
    }

    Player* player = nullptr;
    Fader* savedFader = nullptr;
};
