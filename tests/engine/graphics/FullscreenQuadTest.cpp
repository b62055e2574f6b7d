#include "graphics/FullscreenQuad.h"

#include "DisplayTest.h"
#include "PixelProbe.h"
#include "graphics/Color.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"

#include <GL/gl.h>
#include <GL/glext.h>

using vorlik::Color;
using vorlik::Image;
using vorlik::Texture;

namespace {
using FullscreenQuadTest = CleanWindowTest;

bool isIdentity(GLenum matrix)
{
    GLfloat m[16];
    glGetFloatv(matrix, m);
    for (int i = 0; i < 16; ++i) {
        if (m[i] != (i % 5 == 0 ? 1.0f : 0.0f)) return false;
    }
    return true;
}
} // namespace

TEST_F(FullscreenQuadTest, CoversTheViewportWithTheFirstTexelRowAtTheBottom)
{
    Color::init();
    Image image(2, 2);
    image.setPixel(0, 0, Color::pack(255, 0, 0, 255));
    image.setPixel(1, 0, Color::pack(0, 255, 0, 255));
    image.setPixel(0, 1, Color::pack(0, 0, 255, 255));
    image.setPixel(1, 1, Color::pack(255, 255, 255, 255));
    Texture texture(&image);
    texture.bind(GL_TEXTURE0);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glEnable(GL_TEXTURE_2D);

    vorlik::drawFullscreenQuad();
    glDisable(GL_TEXTURE_2D);

    // Render targets hold their rows bottom-up, so the quad shows them upright on screen.
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(0, kHeight - 1, kHeight), 255, 0, 0));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(kWidth - 1, kHeight - 1, kHeight), 0, 255, 0));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(0, 0, kHeight), 0, 0, 255));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(kWidth - 1, 0, kHeight), 255, 255, 255));
}

TEST_F(FullscreenQuadTest, LeavesIdentityMatricesAndTheThreeArraysEnabled)
{
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    vorlik::drawFullscreenQuad();
    EXPECT_TRUE(isIdentity(GL_PROJECTION_MATRIX));
    EXPECT_TRUE(isIdentity(GL_MODELVIEW_MATRIX));
    EXPECT_TRUE(glIsEnabled(GL_VERTEX_ARRAY));
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
    EXPECT_TRUE(glIsEnabled(GL_COLOR_ARRAY));
    // Untextured, the quad is the opaque white of its vertex colours.
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(kWidth / 2, kHeight / 2, kHeight), 255, 255, 255));
}
