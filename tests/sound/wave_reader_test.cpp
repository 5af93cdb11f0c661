#include "sound/wave_reader.h"

#include "engine/temp_directory.h"
#include "sound/wave_bytes.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

using wave::Bytes;
using wave::operator+;
using wave::chunk;
using wave::lyingChunk;
using wave::riff;

const Bytes DATA = {1, 2, 3, 4, 5, 6, 7, 8};
const Bytes FORMAT = wave::format(2, 44100, 16);

class WaveReader : public testing::Test {
protected:
    std::string write(const Bytes& bytes) const {
        const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        return m_directory.write("a.wav", text).string();
    }

    CTempDirectory m_directory;
};

TEST_F(WaveReader, AcceptsAndRefuses) {
    const Bytes exotic = wave::format(1, 8000, 4, 0x11) + wave::word16(32) + Bytes(32, 0xEE);
    const struct {
        const char* name;
        Bytes file;
        HRESULT result;
        int extraBytes; ///< of the format; -1 when there is to be none
        DWORD dataSize;
    } cases[] = {
        {"ordinary", wave::file(FORMAT, DATA), S_OK, 0, 8},
        {"data before the format", riff(chunk("data", DATA) + chunk("fmt ", FORMAT)), S_OK, 0, 8},
        {"odd chunks",
         riff(chunk("LIST", {'a', 'b', 'c', 'd', 'e'}) + chunk("fmt ", FORMAT) + chunk("x   ", {9}) +
              chunk("data", DATA)),
         S_OK, 0, 8},
        {"extra bytes", wave::file(exotic, DATA), S_OK, 32, 8},
        {"extensible", wave::file(wave::extensibleFormat(2, 44100, 16), DATA), S_OK, 22, 8},
        {"PCM with extra bytes, which are not taken",
         wave::file(FORMAT + wave::word16(4) + Bytes(4, 1), DATA), S_OK, 0, 8},
        {"14 bytes of format", wave::file(Bytes(14, 1), DATA), E_FAIL, -1, 0},
        {"15 bytes of format", wave::file(Bytes(15, 1), DATA), E_FAIL, -1, 0},
        {"two formats: the first", riff(chunk("fmt ", FORMAT) + chunk("fmt ", exotic) + chunk("data", DATA)),
         S_OK, 0, 8},
        {"another form", riff(chunk("fmt ", FORMAT) + chunk("data", DATA), "AVI "), E_FAIL, -1, 0},
        {"no format", riff(chunk("data", DATA)), E_FAIL, -1, 0},
        {"no data: the format stays", riff(chunk("fmt ", FORMAT)), E_FAIL, 0, 0},
        {"extra bytes that are not there",
         riff(lyingChunk("fmt ", 50, wave::format(1, 8000, 4, 0x11) + wave::word16(0xFFFF) + Bytes(8, 1))),
         E_FAIL, -1, 0},
        {"a format that claims 2 GB", riff(lyingChunk("fmt ", 0x80000000, FORMAT) + chunk("data", DATA)),
         E_FAIL, -1, 0},
        {"a RIFF size of 0", wave::riffOfSize(0, chunk("fmt ", FORMAT) + chunk("data", DATA)), E_FAIL, -1, 0},
        {"the largest RIFF size", wave::riffOfSize(0xFFFFFFFF, chunk("fmt ", FORMAT) + chunk("data", DATA)),
         S_OK, 0, 8},
        {"data behind the RIFF size", wave::riffOfSize(28, chunk("fmt ", FORMAT) + chunk("data", DATA)),
         E_FAIL, 0, 0},
        {"data that claims more", riff(chunk("fmt ", FORMAT) + lyingChunk("data", 0xFFFFFFFF, DATA)), S_OK, 0,
         0xFFFFFFFF},
        {"empty", {}, E_FAIL, -1, 0},
    };
    CWaveReader reader;
    for (const auto& row : cases) {
        EXPECT_EQ(reader.open(write(row.file).c_str()), row.result) << row.name;
        ASSERT_EQ(reader.format() != nullptr, row.extraBytes >= 0) << row.name;
        if (row.extraBytes >= 0) {
            EXPECT_EQ(int{reader.format()->cbSize}, row.extraBytes) << row.name;
        }
        if (row.result == S_OK) {
            EXPECT_EQ(reader.dataChunk().cksize, row.dataSize) << row.name;
        }
    }
}

TEST_F(WaveReader, KeepsTheExtraBytes) {
    CWaveReader reader;
    const Bytes format = wave::extensibleFormat(2, 44100, 16);
    ASSERT_EQ(reader.open(write(wave::file(format, DATA)).c_str()), S_OK);
    const BYTE* const block = reinterpret_cast<const BYTE*>(reader.format());
    EXPECT_EQ(Bytes(block, block + 40), format);
}

TEST_F(WaveReader, ReadsInPiecesToTheEndAndAgain) {
    const Bytes data = wave::bytesOf(wave::noise(10'001, 3)); // more than two buffers
    CWaveReader reader;
    ASSERT_EQ(reader.open(write(wave::file(FORMAT, data)).c_str()), S_OK);
    for (const DWORD piece : {1U, 4097U, 8192U, 1'000'000U}) {
        Bytes read;
        Bytes part(piece);
        DWORD count = 1;
        while (count > 0) {
            const DWORD left = reader.dataChunk().cksize;
            ASSERT_EQ(reader.read(piece, part.data(), &count), S_OK);
            ASSERT_EQ(count, std::min(piece, left));
            read.insert(read.end(), part.begin(), part.begin() + count);
        }
        EXPECT_EQ(read, data) << "pieces of " << piece;
        ASSERT_EQ(reader.reset(), S_OK);
    }
}

TEST_F(WaveReader, ReadFailsWhereTheFileEndsBeforeItsData) {
    CWaveReader reader;
    const Bytes file = riff(chunk("fmt ", FORMAT) + lyingChunk("data", 100, DATA));
    ASSERT_EQ(reader.open(write(file).c_str()), S_OK);
    Bytes part(100);
    DWORD count = 1;
    EXPECT_EQ(reader.read(8, part.data(), &count), S_OK);
    EXPECT_EQ(count, 8U);
    EXPECT_EQ(reader.read(1, part.data(), &count), E_FAIL);
    EXPECT_EQ(count, 0U);
}

TEST_F(WaveReader, WhatIsNoFileIsRefused) {
    CWaveReader reader;
    EXPECT_EQ(reader.open((m_directory.path() / "missing.wav").c_str()), E_FAIL);
    EXPECT_EQ(reader.open(m_directory.path().c_str()), E_FAIL);
    EXPECT_EQ(reader.open(nullptr), E_FAIL);
    DWORD count = 1;
    BYTE byte = 0;
    EXPECT_EQ(reader.read(1, &byte, &count), E_FAIL);
    EXPECT_EQ(reader.reset(), E_FAIL);
    EXPECT_EQ(reader.close(), S_OK);
}

TEST_F(WaveReader, EveryPrefixEndsInAnAnswer) {
    const Bytes files[] = {wave::file(FORMAT, DATA), wave::file(wave::extensibleFormat(2, 44100, 16), DATA),
                           riff(chunk("LIST", {1, 2, 3}) + chunk("data", DATA) + chunk("fmt ", FORMAT))};
    for (const Bytes& whole : files) {
        std::size_t readWhole = 0;
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            CWaveReader reader;
            const Bytes prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            Bytes part(100);
            DWORD count = 0;
            if (reader.open(write(prefix).c_str()) == S_OK && reader.read(100, part.data(), &count) == S_OK) {
                part.resize(count);
                EXPECT_EQ(part, DATA);
                ++readWhole;
            }
        }
        EXPECT_GE(readWhole, 1U);
        EXPECT_LE(readWhole, 17U); // once all before the last eight bytes and what follows them is there
    }
}

TEST_F(WaveReader, ChunksAreWalkedByHand) {
    const Bytes inner = lyingChunk("LIST", 4 + 10, {'i', 'n', 'f', 'o'}) + chunk("a   ", {5});
    HMMIO file =
        mmioOpenA(write(riff(inner + chunk("b   ", {6, 7}))).c_str(), nullptr, MMIO_ALLOCBUF | MMIO_READ);
    ASSERT_NE(file, nullptr);
    MMCKINFO whole;
    ASSERT_EQ(mmioDescend(file, &whole, nullptr, 0), MMSYSERR_NOERROR);
    EXPECT_EQ(whole.dwDataOffset, 8U);
    EXPECT_EQ(mmioSeek(file, 0, SEEK_CUR), 12);
    MMCKINFO list;
    ASSERT_EQ(mmioDescend(file, &list, &whole, 0), MMSYSERR_NOERROR);
    EXPECT_EQ(list.fccType, mmioFOURCC('i', 'n', 'f', 'o'));
    MMCKINFO wanted;
    wanted.ckid = mmioFOURCC('b', ' ', ' ', ' ');
    EXPECT_EQ(mmioDescend(file, &wanted, &list, MMIO_FINDCHUNK), MMIOERR_CHUNKNOTFOUND) << "not in the list";
    mmioSeek(file, static_cast<LONG>(list.dwDataOffset) + 4, SEEK_SET);
    MMCKINFO odd;
    ASSERT_EQ(mmioDescend(file, &odd, &list, 0), MMSYSERR_NOERROR);
    EXPECT_EQ(mmioAscend(file, &odd, 0), MMSYSERR_NOERROR);
    EXPECT_EQ(mmioSeek(file, 0, SEEK_CUR), 34) << "behind the pad byte";
    EXPECT_EQ(mmioDescend(file, &wanted, &whole, MMIO_FINDCHUNK), MMSYSERR_NOERROR);
    char bytes[3] = {};
    EXPECT_EQ(mmioRead(file, bytes, 3), 2);
    EXPECT_EQ(bytes[0], 6);
    EXPECT_EQ(mmioSeek(file, -1, SEEK_SET), -1);
    EXPECT_EQ(mmioSeek(file, -2, SEEK_END), 42);
    EXPECT_EQ(mmioRead(file, bytes, 1), 1);
    EXPECT_EQ(bytes[0], 6);
    MMIOINFO foreign;
    EXPECT_EQ(mmioSetInfo(file, &foreign, 0), MMSYSERR_INVALPARAM);
    EXPECT_EQ(mmioClose(file, 0), MMSYSERR_NOERROR);
}

} // namespace
