#include "platform/EventState.h"

#include <cstring>

namespace vorlik {

namespace {
constexpr Uint32 kIdleDelayMs = 10;
constexpr std::memory_order kRelaxed = std::memory_order_relaxed;

bool bitSet(const uint32_t* words, unsigned bit) { return (words[bit >> 5] >> (bit & 31)) & 1u; }

// The event thread is the only writer of the live words, so a load, a bit change and a store
// lose no other change; they stay plain moves where an atomic or/and would lock the bus.
void setBit(std::atomic<uint32_t>* words, unsigned bit)
{
    std::atomic<uint32_t>& word = words[bit >> 5];
    word.store(word.load(kRelaxed) | (1u << (bit & 31)), kRelaxed);
}

void clearBit(std::atomic<uint32_t>* words, unsigned bit)
{
    std::atomic<uint32_t>& word = words[bit >> 5];
    word.store(word.load(kRelaxed) & ~(1u << (bit & 31)), kRelaxed);
}

// Keys outside the bitmap read as up; the comparison is unsigned so negative keys do too.
bool validKey(int key) { return static_cast<unsigned>(key) < EventState::kKeyCount; }
bool validButton(int button) { return static_cast<unsigned>(button) < EventState::kButtonBits; }
bool buttonSet(uint32_t buttons, int button) { return (buttons >> button) & 1u; }
} // namespace

EventState::~EventState() { stop(); }

void EventState::start()
{
    if (thread == nullptr) thread = SDL_CreateThread(__vorlik_event_loop, this);
}

void EventState::stop()
{
    if (thread != nullptr) {
        running.store(false, kRelaxed);
        SDL_WaitThread(thread, nullptr);
    }
    thread = nullptr;
}

void EventState::apply(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_KEYDOWN:
        if (validKey(event.key.keysym.sym)) setBit(liveKeys, event.key.keysym.sym);
        break;
    case SDL_KEYUP:
        if (validKey(event.key.keysym.sym)) clearBit(liveKeys, event.key.keysym.sym);
        break;
    case SDL_MOUSEMOTION:
        liveMouseX.store(event.motion.x, kRelaxed);
        liveMouseY.store(event.motion.y, kRelaxed);
        break;
    case SDL_MOUSEBUTTONDOWN:
        if (validButton(event.button.button)) setBit(&liveButtons, event.button.button);
        break;
    case SDL_MOUSEBUTTONUP:
        if (validButton(event.button.button)) clearBit(&liveButtons, event.button.button);
        break;
    case SDL_QUIT:
        quitRequested.store(true, kRelaxed);
        break;
    default:
        break;
    }
}

void EventState::snapshot()
{
    std::memcpy(previousKeys, currentKeys, sizeof currentKeys);
    for (int w = 0; w < kKeyWords; ++w) currentKeys[w] = liveKeys[w].load(kRelaxed);
    previousMouseX = currentMouseX;
    previousMouseY = currentMouseY;
    currentMouseX = liveMouseX.load(kRelaxed);
    currentMouseY = liveMouseY.load(kRelaxed);
    previousButtons = currentButtons;
    currentButtons = liveButtons.load(kRelaxed);
}

bool EventState::keyDown(int key) const { return validKey(key) && bitSet(currentKeys, key); }

bool EventState::keyPressed(int key) const
{
    return validKey(key) && bitSet(currentKeys, key) && !bitSet(previousKeys, key);
}

bool EventState::keyReleased(int key) const
{
    return validKey(key) && !bitSet(currentKeys, key) && bitSet(previousKeys, key);
}

bool EventState::mouseDown(int button) const
{
    return validButton(button) && buttonSet(currentButtons, button);
}

bool EventState::mousePressed(int button) const
{
    return validButton(button) && buttonSet(currentButtons, button) && !buttonSet(previousButtons, button);
}

bool EventState::mouseReleased(int button) const
{
    return validButton(button) && !buttonSet(currentButtons, button) && buttonSet(previousButtons, button);
}

int __vorlik_event_loop(void* data)
{
    EventState* state = static_cast<EventState*>(data);
    SDL_Event event{};
    if (!state->running.load(kRelaxed)) return 0;
    for (;;) {
        // Drain everything queued before looking at the running flag again.
        while (SDL_PollEvent(&event)) state->apply(event);
        SDL_Delay(kIdleDelayMs);
        if (!state->running.load(kRelaxed)) return 0;
    }
}

} // namespace vorlik
