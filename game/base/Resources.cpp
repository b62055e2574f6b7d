#include "base/Resources.h"

#include "base/ParticleDisc.h"
#include "graphics/Font.h"
#include "graphics/Image.h"
#include "graphics/ImageLoader.h"
#include "graphics/Texture.h"

#include <algorithm>
#include <cstdio>

using vorlik::Font;
using vorlik::Image;
using vorlik::ImageLoader;
using vorlik::Texture;

namespace Resources {

Texture* title_tex = nullptr;
Texture* reticle_tex = nullptr;
Texture* reticle_glow_tex = nullptr;
Texture* star_tex = nullptr;
Texture* skybox_top_tex = nullptr;
Texture* skybox_bottom_tex = nullptr;
Texture* skybox_left_tex = nullptr;
Texture* skybox_right_tex = nullptr;
Texture* skybox_front_tex = nullptr;
Texture* skybox_back_tex = nullptr;
Texture* player_top_tex = nullptr;
Texture* player_mid_tex = nullptr;
Texture* player_bot_tex = nullptr;
Texture* player_top_glow_tex = nullptr;
Texture* player_bot_glow_tex = nullptr;
Texture* laser_tex = nullptr;
Texture* plasmabullet_tex = nullptr;
Texture* powerup_anim_tex = nullptr;
Texture* powerup_glow_anim_tex = nullptr;
Texture* enemy_fighter_tex = nullptr;
Texture* enemy_fighter_glow_tex = nullptr;
Texture* enemy_fighter2_tex = nullptr;
Texture* enemy_fighter2_glow_tex = nullptr;
Texture* enemy_hammerhead_tex = nullptr;
Texture* enemy_hammerhead_glow_tex = nullptr;
Texture* enemy_hammerhead2_tex = nullptr;
Texture* enemy_hammerhead2_glow_tex = nullptr;
Texture* enemy_probe_tex = nullptr;
Texture* enemy_probe_glow_tex = nullptr;
Texture* enemy_probe2_tex = nullptr;
Texture* enemy_probe2_glow_tex = nullptr;
Texture* enemy_probe3_tex = nullptr;
Texture* enemy_probe3_glow_tex = nullptr;
Texture* hud_radar_dials_tex = nullptr;
Texture* hud_radar_mask_tex = nullptr;
Texture* hud_bars_mask_tex = nullptr;
Texture* hud_score_tex = nullptr;
Texture* hud_power_dials_tex = nullptr;

Font* font_big = nullptr;
Font* font_medium = nullptr;
Font* font_small = nullptr;
Font* font_mini = nullptr;

Texture* proc_particle0_tex = nullptr;
Texture* proc_particle1_tex = nullptr;

const TextureFile kTextureFiles[kTextureFileCount] = {
    {"gfx/title.png", &title_tex},
    {"gfx/reticle.png", &reticle_tex},
    {"gfx/reticle_glow.png", &reticle_glow_tex},
    {"gfx/star.png", &star_tex},
    {"gfx/sky_top.png", &skybox_top_tex},
    {"gfx/sky_bottom.png", &skybox_bottom_tex},
    {"gfx/sky_left.png", &skybox_left_tex},
    {"gfx/sky_right.png", &skybox_right_tex},
    {"gfx/sky_front.png", &skybox_front_tex},
    {"gfx/sky_back.png", &skybox_back_tex},
    {"gfx/player_top.png", &player_top_tex},
    {"gfx/player_mid.png", &player_mid_tex},
    {"gfx/player_bot.png", &player_bot_tex},
    {"gfx/player_glow_top.png", &player_top_glow_tex},
    {"gfx/player_glow_bot.png", &player_bot_glow_tex},
    {"gfx/slaser.png", &laser_tex},
    {"gfx/plasmabullet.png", &plasmabullet_tex},
    {"gfx/powerup_anim.png", &powerup_anim_tex},
    {"gfx/powerup_glow_anim.png", &powerup_glow_anim_tex},
    {"gfx/enemy_fighter.png", &enemy_fighter_tex},
    {"gfx/enemy_fighter_glow.png", &enemy_fighter_glow_tex},
    {"gfx/enemy_fighter2.png", &enemy_fighter2_tex},
    {"gfx/enemy_fighter2_glow.png", &enemy_fighter2_glow_tex},
    {"gfx/enemy_hammerhead.png", &enemy_hammerhead_tex},
    {"gfx/enemy_hammerhead_glow.png", &enemy_hammerhead_glow_tex},
    {"gfx/enemy_hammerhead.png", &enemy_hammerhead2_tex},
    {"gfx/enemy_hammerhead_glow.png", &enemy_hammerhead2_glow_tex},
    {"gfx/enemy_probe.png", &enemy_probe_tex},
    {"gfx/enemy_probe_glow.png", &enemy_probe_glow_tex},
    {"gfx/enemy_probe2.png", &enemy_probe2_tex},
    {"gfx/enemy_probe2_glow.png", &enemy_probe2_glow_tex},
    {"gfx/enemy_probe3.png", &enemy_probe3_tex},
    {"gfx/enemy_probe3_glow.png", &enemy_probe3_glow_tex},
    {"gfx/hud_radar_dials.png", &hud_radar_dials_tex},
    {"gfx/hud_radar_mask.png", &hud_radar_mask_tex},
    {"gfx/hud_bars_mask.png", &hud_bars_mask_tex},
    {"gfx/hud_score.png", &hud_score_tex},
    {"gfx/hud_power_dials.png", &hud_power_dials_tex},
};

const FontFile kFontFiles[kFontFileCount] = {
    {"gfx/hugefont.png", &font_big},
    {"gfx/medfont.png", &font_medium},
    {"gfx/smallfont.png", &font_small},
    {"gfx/minifont.png", &font_mini},
};

} // namespace Resources

namespace {
constexpr bool kNoColorKey = false;
constexpr int32_t kParticleSize = 128;       // pixels, both ways
constexpr int32_t kParticleCentre = 64;      // pixels from the top-left corner, both ways
constexpr int32_t kLargeParticleRadius = 60; // pixels
constexpr int32_t kSmallParticleRadius = 30; // pixels
constexpr uint32_t kParticleRimRgb = 0x000000;  // black rim
constexpr uint32_t kParticleCoreRgb = 0xffffff; // white centre

// Ends a "Loading ..." line with the outcome of the load just made.
void reportLoad()
{
    std::puts(ImageLoader::lastError != 0 ? "ERROR" : "OK");
}
} // namespace

void loadResources()
{
    std::puts(":: loading resources...");
    for (const Resources::TextureFile& file : Resources::kTextureFiles) {
        std::printf("Loading texture %s... ", file.path);
        *file.global = ImageLoader::loadTexture(file.path, kNoColorKey);
        reportLoad();
    }
    for (const Resources::FontFile& file : Resources::kFontFiles) {
        std::printf("Loading image %s... ", file.path);
        Image* picture = ImageLoader::load(file.path, kNoColorKey);
        reportLoad();
        *file.global = new Font(picture);
    }
    // A font whose picture failed still gets a texture, of its empty image.
    for (const Resources::FontFile& file : Resources::kFontFiles) (*file.global)->getTexture();

    std::printf(":: Generating procedural textures... ");
    Image canvas(kParticleSize, kParticleSize);
    drawDisc(canvas, kParticleCentre, kParticleCentre, kLargeParticleRadius, kParticleRimRgb, kParticleCoreRgb);
    Resources::proc_particle0_tex = new Texture(&canvas);
    std::fill_n(canvas.pixels, kParticleSize * kParticleSize, 0u);
    drawDisc(canvas, kParticleCentre, kParticleCentre, kSmallParticleRadius, kParticleRimRgb, kParticleCoreRgb);
    Resources::proc_particle1_tex = new Texture(&canvas);
    std::puts(":: All done.");
}
