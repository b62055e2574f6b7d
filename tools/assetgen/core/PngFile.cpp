#include "core/PngFile.h"

#include <png.h>

#include <cstdio>
#include <vector>

namespace assetgen {

bool writePng(const std::string& path, const Picture& picture)
{
    FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        std::fprintf(stderr, "assetgen: cannot write %s\n", path.c_str());
        return false;
    }
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    if (!info || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
        std::fprintf(stderr, "assetgen: libpng failed on %s\n", path.c_str());
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, picture.width, picture.height, 8, PNG_COLOR_TYPE_RGB_ALPHA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, 6);
    png_write_info(png, info);
    std::vector<png_bytep> rows(picture.height);
    for (int y = 0; y < picture.height; ++y)
        rows[y] = const_cast<png_bytep>(picture.texel(0, y));
    png_write_image(png, rows.data());
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return std::fclose(file) == 0;
}

} // namespace assetgen
