// SPDX-License-Identifier: MIT
// Runs other programs' engines on the benchmark's samples.
#include "Peers.h"

#include <algorithm>
#include <codec2/codec2.h>
#include <cstdio>
#include <cstdlib>
#include <rubberband/RubberBandStretcher.h>
#include <soundtouch/SoundTouch.h>
#include <sox.h>

// The second header needs the first.
// clang-format off
#include <spandsp/telephony.h>
#include <spandsp/lpc10.h>

// clang-format on

namespace peers {

namespace {

constexpr int32_t kRateHz = 8000;
constexpr size_t kBlockSamples = 4096;

// The state of a SoX chain; global, because its callbacks have no argument for it.
struct SoxFlow {
    const std::vector<int32_t>* input = nullptr;
    size_t read = 0;
    std::vector<int32_t> output;
    size_t written = 0;
};

SoxFlow flow;

int drainInput(sox_effect_t* /*effect*/, sox_sample_t* out, size_t* count) {
    const size_t more = std::min(*count, flow.input->size() - flow.read);
    for (size_t i = 0; i < more; i++) {
        out[i] = (*flow.input)[flow.read + i] * 65536;  // SoX's samples have 32 bits
    }
    flow.read += more;
    *count = more;
    return flow.read < flow.input->size() ? SOX_SUCCESS : SOX_EOF;
}

int flowOutput(sox_effect_t* /*effect*/,
               const sox_sample_t* in,
               sox_sample_t* /*out*/,
               size_t* inCount,
               size_t* outCount) {
    if (flow.output.size() < flow.written + *inCount) {
        flow.output.resize(2 * (flow.written + *inCount));  // kept from run to run
    }
    for (size_t i = 0; i < *inCount; i++) {
        flow.output[flow.written + i] = in[i] / 65536;
    }
    flow.written += *inCount;
    *outCount = 0;
    return SOX_SUCCESS;
}

const sox_effect_handler_t* inputHandler() {
    static const sox_effect_handler_t handler = {"input", nullptr, SOX_EFF_MCHAN, nullptr,
                                                 nullptr, nullptr, drainInput,    nullptr,
                                                 nullptr, 0};
    return &handler;
}

const sox_effect_handler_t* outputHandler() {
    static const sox_effect_handler_t handler = {"output", nullptr, SOX_EFF_MCHAN | SOX_EFF_MODIFY,
                                                 nullptr,  nullptr, flowOutput,
                                                 nullptr,  nullptr, nullptr,
                                                 0};
    return &handler;
}

void addSoxEffect(sox_effects_chain_t* chain,
                  const sox_effect_handler_t* handler,
                  std::vector<std::string> arguments,
                  sox_signalinfo_t* signal,
                  const sox_signalinfo_t& outSignal) {
    sox_effect_t* effect = sox_create_effect(handler);
    std::vector<char*> pointers;
    pointers.reserve(arguments.size());
    for (std::string& argument : arguments) {
        pointers.push_back(argument.data());
    }
    const auto count = static_cast<int>(pointers.size());
    if (sox_effect_options(effect, count, pointers.data()) != SOX_SUCCESS ||
        sox_add_effect(chain, effect, signal, &outSignal) != SOX_SUCCESS) {
        std::fprintf(stderr, "SoX refuses the effect %s\n", handler->name);
        std::exit(1);
    }
    std::free(effect);
}

}  // namespace

size_t soundTouch(const std::vector<float>& samples, float pitch, float tempo) {
    soundtouch::SoundTouch engine;
    engine.setSampleRate(kRateHz);
    engine.setChannels(1);
    engine.setPitch(pitch);
    engine.setTempo(tempo);
    std::vector<float> out(kBlockSamples);
    size_t made = 0;
    const auto receive = [&] {
        for (uint32_t got = 1; got > 0;) {
            got = engine.receiveSamples(out.data(), kBlockSamples);
            made += got;
        }
    };
    for (size_t at = 0; at < samples.size(); at += kBlockSamples) {
        const size_t count = std::min(kBlockSamples, samples.size() - at);
        engine.putSamples(&samples[at], static_cast<uint32_t>(count));
        receive();
    }
    engine.flush();
    receive();
    return made;
}

size_t
rubberBand(const std::vector<float>& samples, double pitch, double tempo, RubberBandEngine engine) {
    using RubberBand::RubberBandStretcher;
    const int engineOption = engine == RubberBandEngine::kFiner
                                 ? RubberBandStretcher::OptionEngineFiner
                                 : RubberBandStretcher::OptionEngineFaster;
    RubberBandStretcher stretcher(kRateHz, 1,
                                  RubberBandStretcher::OptionProcessOffline |
                                      RubberBandStretcher::OptionThreadingNever | engineOption,
                                  1.0 / tempo, pitch);
    std::vector<float> out(kBlockSamples);
    size_t made = 0;
    stretcher.setExpectedInputDuration(samples.size());
    stretcher.setMaxProcessSize(kBlockSamples);
    const float* all = samples.data();
    stretcher.study(&all, samples.size(), true);
    for (size_t at = 0; at < samples.size(); at += kBlockSamples) {
        const size_t count = std::min(kBlockSamples, samples.size() - at);
        const float* block = &samples[at];
        stretcher.process(&block, count, at + count == samples.size());
        while (stretcher.available() > 0) {
            float* target = out.data();
            made += stretcher.retrieve(&target, kBlockSamples);
        }
    }
    return made;
}

size_t sox(const std::vector<int32_t>& samples,
           const std::vector<std::vector<std::string>>& effects) {
    static const int started = sox_init();
    (void)started;
    flow.input = &samples;
    flow.read = 0;
    flow.written = 0;
    sox_encodinginfo_t encoding = {};
    encoding.encoding = SOX_ENCODING_SIGN2;
    encoding.bits_per_sample = 16;
    sox_signalinfo_t signal = {};
    signal.rate = kRateHz;
    signal.channels = 1;
    signal.precision = 16;
    signal.length = samples.size();
    const sox_signalinfo_t outSignal = signal;
    sox_effects_chain_t* chain = sox_create_effects_chain(&encoding, &encoding);
    addSoxEffect(chain, inputHandler(), {}, &signal, outSignal);
    for (const std::vector<std::string>& effect : effects) {
        addSoxEffect(chain, sox_find_effect(effect[0].c_str()),
                     std::vector<std::string>(effect.begin() + 1, effect.end()), &signal,
                     outSignal);
    }
    addSoxEffect(chain, outputHandler(), {}, &signal, outSignal);
    sox_flow_effects(chain, nullptr, nullptr);
    sox_delete_effects_chain(chain);
    return flow.written;
}

size_t lpc10(const std::vector<int16_t>& samples) {
    const auto count = static_cast<int>(samples.size());
    lpc10_encode_state_t* encoder = lpc10_encode_init(nullptr, 0);
    lpc10_decode_state_t* decoder = lpc10_decode_init(nullptr, 0);
    std::vector<uint8_t> code(samples.size() / 20);  // 7 bytes for each 180 samples
    std::vector<int16_t> out(samples.size() + 180);
    const int bytes = lpc10_encode(encoder, code.data(), samples.data(), count / 180 * 180);
    const int made = lpc10_decode(decoder, out.data(), code.data(), bytes);
    lpc10_encode_free(encoder);
    lpc10_decode_free(decoder);
    return static_cast<size_t>(made);
}

size_t codec2(const std::vector<int16_t>& samples) {
    CODEC2* codec = codec2_create(CODEC2_MODE_3200);
    const auto frame = static_cast<size_t>(codec2_samples_per_frame(codec));
    std::vector<unsigned char> code(static_cast<size_t>(codec2_bytes_per_frame(codec)));
    std::vector<int16_t> in(frame);
    std::vector<int16_t> out(frame);
    size_t made = 0;
    for (size_t at = 0; at + frame <= samples.size(); at += frame) {
        std::copy_n(samples.begin() + static_cast<int64_t>(at), frame, in.begin());
        codec2_encode(codec, code.data(), in.data());
        codec2_decode(codec, out.data(), code.data());
        made += frame;
    }
    codec2_destroy(codec);
    return made;
}

}  // namespace peers
