// The program's shell: engine start-up and the runlevel loop that renders a frame and reacts
// to the global keys (title keys, Escape, F1) once per pass. The key handling reads only the
// engine's input snapshot, so tests drive it directly.
#pragma once

class MainLoop {
public:
    static constexpr int kWindowWidth = 1280;  // pixels
    static constexpr int kWindowHeight = 720;
    static constexpr const char* kCaption = "Kelvane - Unfinished TSY '11 version";

    // Opens the window and creates the world and HUD scenes; ends the process if SDL cannot
    // start.
    void startUp();
    // Runs passes until the runlevel reaches 0, then shuts the engine down.
    void run();
    // One frame: clear, draw the world and the HUD, end the frame, handle the keys.
    void pass();
    // The runlevel transitions driven by this frame's input.
    void handleKeys();

private:
    bool titleKeyPressed() const;
    void enterGame();
    void takeScreenshot();

    int screenshotNumber = 1; // of the next F1 screenshot, never reset
};
