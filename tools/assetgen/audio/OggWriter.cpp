#include "audio/OggWriter.h"

#include <vorbis/vorbisenc.h>

#include <algorithm>
#include <cstdio>

namespace assetgen {

namespace {

constexpr int kSerial = 0x4b4c564e;
constexpr int kBlock = 4096;

bool writePages(FILE* file, ogg_stream_state& os, bool flush)
{
    ogg_page page;
    while (flush ? ogg_stream_flush(&os, &page) : ogg_stream_pageout(&os, &page)) {
        if (std::fwrite(page.header, 1, page.header_len, file) != static_cast<size_t>(page.header_len) ||
            std::fwrite(page.body, 1, page.body_len, file) != static_cast<size_t>(page.body_len))
            return false;
    }
    return true;
}

} // namespace

bool writeOggVorbis(const std::string& path, const std::vector<float>& samples, int rate, float quality)
{
    FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        std::fprintf(stderr, "assetgen: cannot write %s\n", path.c_str());
        return false;
    }
    vorbis_info vi;
    vorbis_info_init(&vi);
    if (vorbis_encode_init_vbr(&vi, 1, rate, quality) != 0) {
        vorbis_info_clear(&vi);
        std::fclose(file);
        std::fprintf(stderr, "assetgen: the Vorbis encoder refused its settings\n");
        return false;
    }
    vorbis_comment vc;
    vorbis_comment_init(&vc);
    vorbis_comment_add_tag(&vc, "TITLE", "Kelvane");
    vorbis_dsp_state vd;
    vorbis_block vb;
    vorbis_analysis_init(&vd, &vi);
    vorbis_block_init(&vd, &vb);
    ogg_stream_state os;
    ogg_stream_init(&os, kSerial);

    ogg_packet header, comments, codebooks;
    vorbis_analysis_headerout(&vd, &vc, &header, &comments, &codebooks);
    ogg_stream_packetin(&os, &header);
    ogg_stream_packetin(&os, &comments);
    ogg_stream_packetin(&os, &codebooks);
    bool ok = writePages(file, os, true);

    size_t pos = 0;
    bool finished = false;
    while (ok && !finished) {
        size_t n = std::min(static_cast<size_t>(kBlock), samples.size() - pos);
        if (n == 0) {
            vorbis_analysis_wrote(&vd, 0);
        } else {
            float** buffer = vorbis_analysis_buffer(&vd, static_cast<int>(n));
            for (size_t i = 0; i < n; ++i)
                buffer[0][i] = samples[pos + i];
            vorbis_analysis_wrote(&vd, static_cast<int>(n));
            pos += n;
        }
        while (vorbis_analysis_blockout(&vd, &vb) == 1) {
            vorbis_analysis(&vb, nullptr);
            vorbis_bitrate_addblock(&vb);
            ogg_packet packet;
            while (vorbis_bitrate_flushpacket(&vd, &packet)) {
                ogg_stream_packetin(&os, &packet);
                ok = ok && writePages(file, os, false);
                if (packet.e_o_s)
                    finished = true;
            }
        }
        if (n == 0)
            finished = true;
    }
    ok = ok && writePages(file, os, true);

    ogg_stream_clear(&os);
    vorbis_block_clear(&vb);
    vorbis_dsp_clear(&vd);
    vorbis_comment_clear(&vc);
    vorbis_info_clear(&vi);
    if (std::fclose(file) != 0 || !ok) {
        std::fprintf(stderr, "assetgen: writing %s failed\n", path.c_str());
        return false;
    }
    return true;
}

} // namespace assetgen
