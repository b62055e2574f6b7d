#include "audio/Song.h"

#include <algorithm>
#include <cmath>

#include "audio/Dsp.h"
#include "core/Rng.h"
#include "core/Vec.h"

namespace assetgen {

namespace {

constexpr float kTwoPi = 2 * kPi;
constexpr long kBarSamples = static_cast<long>(kBeatSamples) * kBeatsPerBar;
constexpr float kBeatSeconds = static_cast<float>(kBeatSamples) / kSampleRate;
constexpr long kDelaySamples = kBeatSamples * 3 / 4;  // a dotted eighth
constexpr float kDelayFeedback = 0.38f;

// A mix bus that wraps round the loop: whatever rings past the end lands at the start.
struct Bus {
    std::vector<float> s = std::vector<float>(kLoopSamples);
    void add(long pos, float v)
    {
        long i = pos % kLoopSamples;
        s[static_cast<size_t>(i < 0 ? i + kLoopSamples : i)] += v;
    }
};

struct Mix {
    Bus dry, send, echo;  // straight out, to the reverb, through the delay
};

// i - VI - III - VII in A minor, two bars each: Am, F, C, G.
struct Chord {
    int bass;
    int tones[4];
};
const Chord kChords[4] = {{45, {57, 60, 64, 71}}, {41, {53, 57, 60, 64}}, {48, {55, 60, 64, 67}}, {43, {55, 59, 62, 69}}};
const Chord& chordAt(int bar) { return kChords[(bar / 2) % 4]; }

enum class Section { Intro, Groove, Full, Breakdown, Finale };
Section sectionOf(int bar) { return static_cast<Section>(bar / 8); }
bool drumsOut(int bar) { return bar >= kBars - 2; } // the last two bars ease back into the intro

struct Note {
    float beat;   // start, in beats from the phrase start
    int midi;
    float beats;  // length
};
// Eight-bar lead phrases over the chord cycle.
const Note kPhraseA[] = {{0, 76, 3}, {3, 74, 1}, {4, 72, 2}, {6, 71, 2}, {8, 72, 3}, {11, 69, 1}, {12, 65, 4},
                         {16, 67, 3}, {19, 72, 1}, {20, 76, 4}, {24, 74, 3}, {27, 71, 1}, {28, 67, 4}};
const Note kPhraseB[] = {{0, 81, 2}, {2, 79, 2}, {4, 76, 4}, {8, 77, 2}, {10, 76, 2}, {12, 72, 4},
                         {16, 79, 3}, {19, 76, 1}, {20, 72, 4}, {24, 74, 2}, {26, 71, 2}, {28, 69, 4}};

long beatPos(int bar, float beat) { return bar * kBarSamples + std::lround(beat * kBeatSamples); }

constexpr int kControlRate = 16;  // samples between updates of a moving filter cutoff

// Runs a voice from start until its envelope has died away (to about -43 dB) after `held`
// seconds; the voice gets the loop position, its own sample count and its age in seconds.
template <class Voice>
void play(long start, float held, float release, Voice voice)
{
    long length = static_cast<long>((held + release * 5) * kSampleRate);
    for (long i = 0; i < length; ++i)
        voice(start + i, i, static_cast<float>(i) / kSampleRate);
}

void pad(Mix& mix, int bar, Rng& rng)
{
    const Chord& c = chordAt(bar);
    const Envelope env{1.4f, 1.5f, 0.8f, 1.8f};
    float held = 2 * kBeatsPerBar * kBeatSeconds;
    for (int tone : c.tones) {
        Saw saws[3] = {Saw(rng.unit()), Saw(rng.unit()), Saw(rng.unit())};
        const float hz[3] = {noteHz(tone - 0.08f), noteHz(static_cast<float>(tone)), noteHz(tone + 0.08f)};
        Svf filter;
        play(bar * kBarSamples, held, env.release, [&](long pos, long i, float t) {
            float x = (saws[0].next(hz[0]) + saws[1].next(hz[1]) + saws[2].next(hz[2])) / 3;
            if (i % kControlRate == 0) {
                // The filter breathes four times a loop, in step with the loop itself.
                float loopPhase = static_cast<float>(((pos % kLoopSamples) + kLoopSamples) % kLoopSamples) / kLoopSamples;
                filter.set(1000 + 550 * std::sin(kTwoPi * 4 * loopPhase), 0.25f);
            }
            float v = filter.process(x).low * env.at(t, held) * 0.085f;
            mix.send.add(pos, v * 0.7f);
            mix.dry.add(pos, v * 0.45f);
        });
    }
}

void bass(Mix& mix, int bar, Rng& rng)
{
    const int root = chordAt(bar).bass;
    const bool held = sectionOf(bar) == Section::Breakdown;
    // Eighth-note steps: (position in eighths, interval, length in eighths).
    struct Step {
        float at;
        int interval;
        float len;
    };
    const Step groove[] = {{0, 0, 1.5f}, {2, 0, 0.7f}, {3, 12, 0.7f}, {4, 0, 1.5f}, {6, 7, 0.7f}, {7, 12, 0.7f}};
    const Step sustained[] = {{0, 0, 7.5f}};
    const Envelope env{0.004f, 0.25f, 0.55f, 0.08f};
    auto steps = held ? std::vector<Step>(std::begin(sustained), std::end(sustained))
                      : std::vector<Step>(std::begin(groove), std::end(groove));
    for (const Step& s : steps) {
        Saw saw(rng.unit());
        Svf filter;
        float sub = 0;
        float hz = noteHz(static_cast<float>(root + s.interval));
        float len = s.len * kBeatSeconds / 2;
        play(beatPos(bar, s.at / 2), len, env.release, [&](long pos, long i, float t) {
            sub += kTwoPi * hz * 0.5f / kSampleRate;
            if (i % kControlRate == 0)
                filter.set(180 + 1100 * std::exp(-t / 0.09f), 0.35f);
            float x = filter.process(saw.next(hz)).low + 0.6f * std::sin(sub);
            float v = x * env.at(t, len) * (held ? 0.12f : 0.17f);
            mix.dry.add(pos, v);
            mix.send.add(pos, v * 0.1f);
        });
    }
}

// How the arpeggio walks the chord in each section: its steps (indices into the chord's
// four tones, 4 = the root an octave up), how many steps a bar and how long each note rings.
struct ArpPattern {
    int order[8];
    int stepsPerBar;
    float decay;  // seconds
};
const ArpPattern kRolling{{0, 1, 2, 3, 4, 3, 2, 1}, 16, 0.16f};
const ArpPattern kBroken{{0, 2, 4, 2, 1, 3, 4, 3}, 16, 0.16f};
const ArpPattern kFloating{{4, 3, 2, 1, 0, 1, 2, 3}, 8, 0.35f};

const ArpPattern& arpPatternOf(Section s)
{
    switch (s) {
    case Section::Full:
    case Section::Finale: return kBroken;
    case Section::Breakdown: return kFloating;
    default: return kRolling;
    }
}

void arpeggio(Mix& mix, int bar, Rng& rng)
{
    const Chord& c = chordAt(bar);
    const ArpPattern& pattern = arpPatternOf(sectionOf(bar));
    const Envelope env{0.002f, pattern.decay, 0.0f, 0.08f};
    const float level = sectionOf(bar) == Section::Intro ? 0.6f : 1.0f;
    const float stepBeats = static_cast<float>(kBeatsPerBar) / pattern.stepsPerBar;
    for (int step = 0; step < pattern.stepsPerBar; ++step) {
        int k = pattern.order[step % 8];
        int midi = (k == 4 ? c.tones[0] + 12 : c.tones[k]) + 12;
        float accent = step % (pattern.stepsPerBar / 4) == 0 ? 1.0f : 0.7f;
        Saw saw(rng.unit());
        Svf filter;
        float hz = noteHz(static_cast<float>(midi));
        float phase = 0;
        play(beatPos(bar, step * stepBeats), 0.06f, env.release, [&](long pos, long i, float t) {
            phase += kTwoPi * hz / kSampleRate;
            if (i % kControlRate == 0)
                filter.set(800 + 3000 * std::exp(-t / 0.05f), 0.2f);
            float x = filter.process(saw.next(hz)).low + 0.4f * std::sin(phase);
            float v = x * env.at(t, 0.06f) * 0.05f * accent * level;
            mix.echo.add(pos, v);
            mix.dry.add(pos, v * 0.6f);
        });
    }
}

void lead(Mix& mix, int firstBar, const Note* phrase, size_t count, Rng& rng)
{
    const Envelope env{0.09f, 0.8f, 0.7f, 0.6f};
    for (size_t n = 0; n < count; ++n) {
        const Note& note = phrase[n];
        Saw saw(rng.unit());
        Svf filter;
        filter.set(1600, 0.1f);
        float phase = 0;
        float held = note.beats * kBeatSeconds * 0.92f;
        const float base = noteHz(static_cast<float>(note.midi));
        play(beatPos(firstBar, note.beat), held, env.release, [&](long pos, long, float t) {
            // Vibrato of up to a seventh of a semitone, fading in after the attack.
            float vibrato = 0.14f * std::sin(kTwoPi * 5.2f * t) * smoothstep(0.25f, 0.7f, t);
            float hz = base * (1 + vibrato * 0.0578f);
            phase += kTwoPi * hz / kSampleRate;
            float x = 0.7f * std::sin(phase) + 0.35f * filter.process(saw.next(hz)).low;
            float v = x * env.at(t, held) * 0.075f;
            mix.send.add(pos, v * 0.8f);
            mix.dry.add(pos, v * 0.55f);
            mix.echo.add(pos, v * 0.25f);
        });
    }
}

void kick(Mix& mix, long at)
{
    float phase = 0;
    play(at, 0.0f, 0.3f, [&](long pos, long, float t) {
        phase += kTwoPi * (46 + 90 * std::exp(-t / 0.035f)) / kSampleRate;
        mix.dry.add(pos, std::sin(phase) * std::exp(-t / 0.28f) * 0.42f);
    });
}

void snare(Mix& mix, long at, WhiteNoise& noise)
{
    Svf filter;
    filter.set(2200, 0.3f);
    float phase = 0;
    play(at, 0.0f, 0.12f, [&](long pos, long, float t) {
        phase += kTwoPi * 185 / kSampleRate;
        float body = std::sin(phase) * std::exp(-t / 0.06f) * 0.5f;
        float hiss = filter.process(noise.next()).band * std::exp(-t / 0.11f);
        float v = (body + hiss) * 0.2f;
        mix.dry.add(pos, v);
        mix.send.add(pos, v * 0.5f);
    });
}

void hat(Mix& mix, long at, float level, float decay, WhiteNoise& noise)
{
    Svf filter;
    filter.set(7500, 0.1f);
    play(at, 0.0f, decay, [&](long pos, long, float t) {
        float v = filter.process(noise.next()).high * std::exp(-t / decay) * level;
        mix.dry.add(pos, v);
        mix.send.add(pos, v * 0.3f);
    });
}

void drums(Mix& mix, int bar, WhiteNoise& noise)
{
    Section s = sectionOf(bar);
    bool beat = (s == Section::Groove || s == Section::Full || s == Section::Finale) && !drumsOut(bar);
    bool backbeat = (s == Section::Full || s == Section::Finale) && !drumsOut(bar);
    bool hats = (s == Section::Intro && bar >= 4) || s == Section::Groove || s == Section::Full || s == Section::Finale;
    if (beat) {
        kick(mix, beatPos(bar, 0));
        kick(mix, beatPos(bar, 2));
        if (bar % 2 == 1)
            kick(mix, beatPos(bar, 2.75f));
    }
    if (backbeat) {
        snare(mix, beatPos(bar, 1), noise);
        snare(mix, beatPos(bar, 3), noise);
    }
    if (hats)
        for (int e = 0; e < 8; ++e) {
            bool off = e % 2 == 1;
            if (off)
                hat(mix, beatPos(bar, e * 0.5f), 0.075f, e == 7 ? 0.12f : 0.035f, noise);
            else if (backbeat)
                hat(mix, beatPos(bar, e * 0.5f), 0.035f, 0.025f, noise);
        }
}

// Delay and reverb over the loop twice: the second time round their tails from the end
// are already sounding, exactly as when the game loops the track.
std::vector<float> master(const Mix& mix)
{
    Reverb reverb(0.86f, 0.35f);
    std::vector<float> echoLine(kDelaySamples);
    size_t echoPos = 0;
    std::vector<float> out(kLoopSamples);
    for (int pass = 0; pass < 2; ++pass)
        for (size_t i = 0; i < out.size(); ++i) {
            float echo = echoLine[echoPos];
            echoLine[echoPos] = mix.echo.s[i] + echo * kDelayFeedback;
            echoPos = (echoPos + 1) % echoLine.size();
            float wet = reverb.process(mix.send.s[i] + echo * 0.4f + mix.echo.s[i] * 0.3f);
            if (pass == 1)
                out[i] = mix.dry.s[i] + mix.echo.s[i] * 0.5f + echo * 0.45f + wet * 0.9f;
        }
    float peak = 1e-6f;
    for (float v : out)
        peak = std::max(peak, std::fabs(v));
    // Gentle saturation rounds off the drum peaks, then the loop is set just below full scale.
    const float drive = 1.6f;
    float top = 0;
    for (float& v : out) {
        v = std::tanh(drive * v / peak);
        top = std::max(top, std::fabs(v));
    }
    for (float& v : out)
        v *= kMusicPeak / top;
    return out;
}

} // namespace

std::vector<float> renderSong()
{
    Mix mix;
    Rng rng(0x4d55534943ull);
    WhiteNoise noise(0x2545F491u);
    for (int bar = 0; bar < kBars; bar += 2)
        pad(mix, bar, rng);
    for (int bar = 0; bar < kBars; ++bar) {
        Section s = sectionOf(bar);
        arpeggio(mix, bar, rng);
        if (s != Section::Intro)
            bass(mix, bar, rng);
        drums(mix, bar, noise);
    }
    const size_t lenA = sizeof(kPhraseA) / sizeof(kPhraseA[0]), lenB = sizeof(kPhraseB) / sizeof(kPhraseB[0]);
    lead(mix, 16, kPhraseA, lenA, rng);
    lead(mix, 24, kPhraseB, lenB, rng);
    lead(mix, 32, kPhraseA, lenA, rng);
    return master(mix);
}

} // namespace assetgen
