// Every picture and font of the game, loaded once at start-up into globals that the rest of
// the game reads directly, and the two soft particle discs the game draws itself. Loading
// reports each file on standard output and never stops the program: a picture that fails
// leaves its global holding the loader's empty texture. Nothing here is ever freed.
#pragma once

#include <cstdint>

namespace vorlik {
class Font;
class Texture;
}

namespace Resources {

extern vorlik::Texture* title_tex;
extern vorlik::Texture* reticle_tex;
extern vorlik::Texture* reticle_glow_tex;
extern vorlik::Texture* star_tex;
extern vorlik::Texture* skybox_top_tex;
extern vorlik::Texture* skybox_bottom_tex;
extern vorlik::Texture* skybox_left_tex;
extern vorlik::Texture* skybox_right_tex;
extern vorlik::Texture* skybox_front_tex;
extern vorlik::Texture* skybox_back_tex;
extern vorlik::Texture* player_top_tex;
extern vorlik::Texture* player_mid_tex;
extern vorlik::Texture* player_bot_tex;
extern vorlik::Texture* player_top_glow_tex;
extern vorlik::Texture* player_bot_glow_tex;
extern vorlik::Texture* laser_tex;
extern vorlik::Texture* plasmabullet_tex;
extern vorlik::Texture* powerup_anim_tex;
extern vorlik::Texture* powerup_glow_anim_tex;
extern vorlik::Texture* enemy_fighter_tex;
extern vorlik::Texture* enemy_fighter_glow_tex;
extern vorlik::Texture* enemy_fighter2_tex;
extern vorlik::Texture* enemy_fighter2_glow_tex;
extern vorlik::Texture* enemy_hammerhead_tex;
extern vorlik::Texture* enemy_hammerhead_glow_tex;
// The second hammerhead type has no pictures of its own: these are separate textures of the
// same two files.
extern vorlik::Texture* enemy_hammerhead2_tex;
extern vorlik::Texture* enemy_hammerhead2_glow_tex;
extern vorlik::Texture* enemy_probe_tex;
extern vorlik::Texture* enemy_probe_glow_tex;
extern vorlik::Texture* enemy_probe2_tex;
extern vorlik::Texture* enemy_probe2_glow_tex;
extern vorlik::Texture* enemy_probe3_tex;
extern vorlik::Texture* enemy_probe3_glow_tex;
extern vorlik::Texture* hud_radar_dials_tex;
extern vorlik::Texture* hud_radar_mask_tex;
extern vorlik::Texture* hud_bars_mask_tex;
extern vorlik::Texture* hud_score_tex;
extern vorlik::Texture* hud_power_dials_tex;

extern vorlik::Font* font_big;
extern vorlik::Font* font_medium;
extern vorlik::Font* font_small;
extern vorlik::Font* font_mini;

extern vorlik::Texture* proc_particle0_tex; // disc of radius 60 in 128 x 128 pixels
extern vorlik::Texture* proc_particle1_tex; // disc of radius 30 in 128 x 128 pixels

// A picture file (relative to the working directory) and the global it loads into.
struct TextureFile {
    const char* path;
    vorlik::Texture** global;
};
struct FontFile {
    const char* path;
    vorlik::Font** global;
};

constexpr uint32_t kTextureFileCount = 38;
constexpr uint32_t kFontFileCount = 4;
// In loading order.
extern const TextureFile kTextureFiles[kTextureFileCount];
extern const FontFile kFontFiles[kFontFileCount];

} // namespace Resources

// Loads every texture and font image in table order, builds the fonts' textures and draws
// the particle discs, one progress line per file on standard output. Needs a current GL
// context and the engine's colour layout (Vorlik::init sets both up).
void loadResources();
