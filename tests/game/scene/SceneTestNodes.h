// Test doubles for the scene graph: a leaf that remembers how it was drawn, and a sink that
// records what the traversal decided to draw, in order, without touching GL.
#pragma once

#include "scene/Drawable.h"
#include "scene/Effect.h"
#include "scene/Group.h"
#include "scene/SceneSink.h"
#include "scene/SceneState.h"

#include <string>
#include <vector>

// A leaf of a given size whose draw counts calls and keeps the last state.
class RecordingLeaf : public Drawable {
public:
    explicit RecordingLeaf(float width = 10.0f, float height = 10.0f) { setSize(width, height); }
    void draw(const SceneState& state) override
    {
        ++draws;
        lastState = state;
    }
    int draws = 0;
    SceneState lastState{};
};

class RecordingEffect : public Effect {
public:
    void draw(const SceneState& state) override
    {
        ++draws;
        lastState = state;
    }
    int draws = 0;
    SceneState lastState{};
};

// A Container for list tests: nothing but the list.
class TestContainer : public Container {};

struct DrawCall {
    Drawable* node;
    SceneState state;
};

// Records a frame's steps and the traversal's decisions, and passes each leaf on to its own
// draw. events holds the steps in order: 'b' begin, 'o' world outline, 'n' node, 'r' bounds,
// 'e' end.
class RecordingSink : public SceneSink {
public:
    void beginFrame() override { events.push_back('b'); }
    void endFrame() override { events.push_back('e'); }
    void drawWorldOutline(const SceneState& initial, float worldWidth, float worldHeight) override
    {
        events.push_back('o');
        outlineState = initial;
        outlineSize = vorlik::vec2(worldWidth, worldHeight);
    }
    void drawNode(Drawable& node, const SceneState& state) override
    {
        events.push_back('n');
        calls.push_back(DrawCall{&node, state});
        node.draw(state);
    }
    void drawBounds(const Rect& rect, const SceneState&) override
    {
        events.push_back('r');
        bounds.push_back(rect);
    }

    std::string events;
    std::vector<DrawCall> calls;
    std::vector<Rect> bounds;
    SceneState outlineState{};
    vorlik::vec2 outlineSize;
};
