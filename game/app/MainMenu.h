// The main menu the game was meant to open with: a logo, a cursor that follows the mouse and
// five entries. It was never finished, so nothing creates it and g_menu stays null; the main
// loop must therefore never enter the menu's runlevel. Its picture and entry texts are unset.
#pragma once

class Sprite;
class Text;

// The menu's colour set: four pairs of values and a switch. Nothing sets it up.
struct MenuColors {
    float pairs[4][2] = {};
    bool on = false;

    void reset();
};

class MainMenu {
public:
    static constexpr int kItemCount = 5;

    Sprite* logo;             // owned; no picture is ever given to it
    Sprite* cursor;           // owned
    Text* items[kItemCount];  // owned; their texts are never set

    MainMenu();
    ~MainMenu();
    MainMenu(const MainMenu&) = delete;
    MainMenu& operator=(const MainMenu&) = delete;

    // Places the logo, cursor and entries on the HUD, runs the frame tick once so the clock is
    // current and starts a two-second white flash on g_fader.
    void layout();
    // Moves the cursor to the mouse and dims the fifth entry.
    void frame();
};

// Never created.
extern MainMenu* g_menu;
