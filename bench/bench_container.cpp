// SPDX-License-Identifier: MIT
// The codecs of message files, without processes and disk: what a bridge's time is made of. The
// data are noise for the most part, as JPEGs are to a compressor, and text for the rest.
#include "container/cpio.h"
#include "container/gzip.h"

#include <benchmark/benchmark.h>

#include <random>

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int memberCount = 24;

// A message of `size` bytes as one archive.
Bytes message(std::size_t size)
{
    std::mt19937 random(7);
    Bytes data(size / memberCount);
    for (std::size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<std::uint8_t>(i % 4096 < 3600 ? random() : 'a' + i % 23);
    std::vector<fennel::CpioMember> members;
    members.reserve(memberCount);
    for (int i = 0; i < memberCount; ++i)
        members.push_back({"back_" + std::to_string(i) + ".jpg", 0, data});
    return std::move(*fennel::writeCpio(members));
}

void count(benchmark::State& state)
{
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void readCpio(benchmark::State& state)
{
    const Bytes archive = message(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(fennel::readCpio(archive));
    count(state);
}

void writeCpio(benchmark::State& state)
{
    const Bytes archive = message(static_cast<std::size_t>(state.range(0)));
    const auto members = fennel::readCpio(archive);
    for (auto _ : state)
        benchmark::DoNotOptimize(fennel::writeCpio(*members));
    count(state);
}

void gzipCompress(benchmark::State& state)
{
    const Bytes archive = message(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(fennel::gzipCompress(archive, "#message", 0));
    count(state);
}

void gzipDecompress(benchmark::State& state)
{
    const auto file =
        fennel::gzipCompress(message(static_cast<std::size_t>(state.range(0))), "#message", 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(fennel::gzipDecompress(*file));
    count(state);
}

} // namespace

BENCHMARK(readCpio)->Arg(450'000)->Arg(4'400'000);
BENCHMARK(writeCpio)->Arg(450'000)->Arg(4'400'000);
BENCHMARK(gzipCompress)->Arg(450'000)->Arg(4'400'000)->Unit(benchmark::kMillisecond);
BENCHMARK(gzipDecompress)->Arg(450'000)->Arg(4'400'000)->Unit(benchmark::kMillisecond);
