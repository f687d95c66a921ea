#pragma once

// Which vector instructions the hex codec's block steps use, chosen at compile time: SSE2 on
// x86-64, NEON on ARM, none elsewhere. HexDecode.hpp and HexEncode.hpp hold each step twice,
// as a vector form and as the scalar reference that it must match byte for byte; their
// loops run the vector form over whole blocks of 16 bytes and the scalar one over the tail.

#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#define VASTREL_HEX_SIMD 1
#elif defined(__ARM_NEON)
#include <arm_neon.h>
#define VASTREL_HEX_SIMD 1
#else
#define VASTREL_HEX_SIMD 0
#endif

namespace vastrel::codec {

#if defined(__SSE2__)
inline constexpr std::string_view kHexSimdName = "SSE2";
#elif defined(__ARM_NEON)
inline constexpr std::string_view kHexSimdName = "NEON";
#else
inline constexpr std::string_view kHexSimdName = "none";
#endif

}  // namespace vastrel::codec
