// The input record shared by the main thread and the event thread.
// The event thread writes the live fields as SDL events arrive; once a frame the main thread
// copies them into the current snapshot (and the current one into the previous), and every
// query reads only the snapshots, so an answer stays the same for a whole frame.
#pragma once

#include <SDL.h>
#include <atomic>
#include <cstdint>

namespace vorlik {

class EventState {
public:
    static constexpr int kKeyCount = 512;     // SDL 1.2 key symbols are all below this
    static constexpr int kKeyWords = kKeyCount / 32;
    static constexpr unsigned kButtonBits = 32;

    // The atomics are shared by the two threads without a lock. Relaxed loads and stores are
    // enough: no other data is published through them, and a change seen a frame late is fine.
    SDL_Thread* thread = nullptr;
    std::atomic<bool> running{true};
    std::atomic<bool> quitRequested{false}; // set by the event thread, never cleared by it

    std::atomic<uint32_t> liveKeys[kKeyWords] = {};
    uint32_t currentKeys[kKeyWords] = {};
    uint32_t previousKeys[kKeyWords] = {};

    std::atomic<int32_t> liveMouseX{0}, liveMouseY{0};
    int32_t currentMouseX = 0, currentMouseY = 0;
    int32_t previousMouseX = 0, previousMouseY = 0;

    std::atomic<uint32_t> liveButtons{0};
    uint32_t currentButtons = 0;
    uint32_t previousButtons = 0;

    EventState() = default;
    ~EventState();
    EventState(const EventState&) = delete;
    EventState& operator=(const EventState&) = delete;

    // Starts the event thread unless one is running already.
    void start();
    // Asks the event thread to finish and waits for it (up to about 10 ms).
    void stop();

    // Records one SDL event in the live fields; every other event type is ignored.
    void apply(const SDL_Event& event);

    // Copies live into current and current into previous, at the end of a frame.
    void snapshot();

    bool keyDown(int key) const;
    bool keyPressed(int key) const;
    bool keyReleased(int key) const;
    bool mouseDown(int button) const;
    bool mousePressed(int button) const;
    bool mouseReleased(int button) const;
};

// Body of the event thread: drains the SDL queue into the EventState given as data, sleeping
// 10 ms whenever the queue is empty, until the record's running flag is cleared.
int __vorlik_event_loop(void* data);

// The shared fields must cost no more than the plain words they stand for.
static_assert(std::atomic<bool>::is_always_lock_free);
static_assert(std::atomic<int32_t>::is_always_lock_free);
static_assert(std::atomic<uint32_t>::is_always_lock_free);

} // namespace vorlik
