// The program's shell: engine start-up and the runlevel loop that renders a frame, draws the
// screen fader and reacts to the global keys (title keys, Escape, F1) once per pass. Every
// change of runlevel waits for the fader to finish. The key handling reads only the engine's
// input snapshot and clock, so tests drive it directly.
#pragma once

class TitleScreen;

class MainLoop {
public:
    static constexpr int kWindowWidth = 1280;  // pixels
    static constexpr int kWindowHeight = 720;
    static constexpr const char* kCaption = "Kelvane - Unfinished TSY '11 version";

    TitleScreen* title = nullptr; // shown from start-up until the game begins

    // Opens the window, loads the pictures, fonts and music, creates the scenes and the fader
    // and shows the title; ends the process if SDL cannot start.
    void startUp();
    // Runs passes until the runlevel reaches 0, then shuts the engine down.
    void run();
    // One frame: clear, draw the world, the HUD and the fader, end the frame, advance the game
    // (or the menu, which nothing ever enters), handle the keys.
    void pass();
    // The runlevel transitions driven by this frame's input.
    void handleKeys();

private:
    bool titleKeyPressed() const;
    // Fades in from black, tears the title down, creates and starts the game session and
    // starts the music.
    void enterGame();
    void takeScreenshot();

    int screenshotNumber = 1; // of the next F1 screenshot, never reset
};
