#include "unwinding.hpp"

#include "byte_reader.hpp"

#include <algorithm>
#include <map>
#include <optional>

extern "C" void __register_frame(void *begin);

namespace device {
namespace {

// <mach-o/compact_unwind_encoding.h>
constexpr std::uint32_t kModeMask = 0x0f000000;
constexpr std::uint32_t kModeFrameless = 0x02000000;
constexpr std::uint32_t kModeFrame = 0x04000000;
constexpr std::uint32_t kHasLanguageData = 0x40000000;
constexpr std::uint32_t kPersonalityMask = 0x30000000;
constexpr std::uint32_t kPersonalityShift = 28;
constexpr std::uint32_t kRegularPage = 2;
constexpr std::uint32_t kCompressedPage = 3;

struct RegisterPair {
    std::uint32_t bit;
    unsigned first; // DWARF numbers: x19 is 19, d8 is 72
};
constexpr RegisterPair kPairs[] = {{0x001, 19}, {0x002, 21}, {0x004, 23}, {0x008, 25}, {0x010, 27},
                                   {0x100, 72}, {0x200, 74}, {0x400, 76}, {0x800, 78}};

struct Function {
    std::uint32_t offset;
    std::uint32_t encoding;
};

/// The compact unwind table of an image.
struct UnwindTable {
    std::vector<Function> functions;                     // by offset; the last is the end of the code
    std::vector<std::uint32_t> personalities;            // offsets of pointers to them
    std::map<std::uint32_t, std::uint32_t> languageData; // function offset to data offset
};

void ReadPage(UnwindTable &table, std::span<const std::uint8_t> info, std::uint32_t page, std::uint32_t base,
              const std::vector<std::uint32_t> &common) {
    const auto kind = ReadAt<std::uint32_t>(info, page, "unwind page");
    const std::uint64_t entries = page + ReadAt<std::uint16_t>(info, page + 4ULL, "unwind page");
    const auto count = ReadAt<std::uint16_t>(info, page + 6ULL, "unwind page");
    if (kind != kRegularPage && kind != kCompressedPage) {
        throw Refusal("unwind page of unknown kind " + std::to_string(kind));
    }
    for (std::uint16_t i = 0; i < count; ++i) {
        if (kind == kRegularPage) {
            table.functions.push_back({ReadAt<std::uint32_t>(info, entries + i * 8ULL, "unwind entry"),
                                       ReadAt<std::uint32_t>(info, entries + i * 8ULL + 4, "unwind entry")});
            continue;
        }
        const auto entry = ReadAt<std::uint32_t>(info, entries + i * 4ULL, "unwind entry");
        const std::uint32_t index = entry >> 24;
        const std::uint64_t own = page + ReadAt<std::uint16_t>(info, page + 8ULL, "unwind page");
        const std::uint32_t encoding =
            index < common.size() ? common[index]
                                  : ReadAt<std::uint32_t>(info, own + (index - common.size()) * 4, "unwind encoding");
        table.functions.push_back({base + (entry & 0xffffff), encoding});
    }
}

UnwindTable ReadTable(std::span<const std::uint8_t> info) {
    const auto word = [&](std::uint64_t offset) { return ReadAt<std::uint32_t>(info, offset, "unwind table"); };
    if (word(0) != 1) {
        throw Refusal("unwind table of another version");
    }
    UnwindTable table;
    std::vector<std::uint32_t> common;
    for (std::uint32_t i = 0; i < word(8); ++i) {
        common.push_back(word(word(4) + i * 4ULL));
    }
    for (std::uint32_t i = 0; i < word(16); ++i) {
        table.personalities.push_back(word(word(12) + i * 4ULL));
    }
    const std::uint32_t index = word(20);
    const std::uint32_t count = word(24);
    for (std::uint32_t i = 0; i + 1 < count; ++i) {
        const std::uint64_t entry = index + i * 12ULL;
        if (word(entry + 4) != 0) {
            ReadPage(table, info, word(entry + 4), word(entry), common);
        }
        for (std::uint32_t data = word(entry + 8); data < word(entry + 20); data += 8) {
            table.languageData[word(data)] = word(data + 4ULL);
        }
    }
    table.functions.push_back({word(index + (count - 1) * 12ULL), 0});
    return table;
}

/// Call-frame information in the making.
class FrameWriter {
  public:
    explicit FrameWriter(const MappedImage &image) : image_(image) {}

    void Byte(unsigned value) {
        bytes_.push_back(static_cast<std::uint8_t>(value));
    }
    void Uleb(std::uint64_t value) {
        for (; value >= 0x80; value >>= 7) {
            Byte((value & 0x7f) | 0x80);
        }
        Byte(static_cast<unsigned>(value));
    }
    template <class T> void Value(T value) {
        const auto *raw = reinterpret_cast<const std::uint8_t *>(&value);
        bytes_.insert(bytes_.end(), raw, raw + sizeof value);
    }
    /// Opens an entry; its length is filled in by Close.
    std::size_t Open() {
        const std::size_t start = bytes_.size();
        Value<std::uint32_t>(0);
        return start;
    }
    void Close(std::size_t start) {
        while ((bytes_.size() - start) % 8 != 4) {
            Byte(0); // DW_CFA_nop
        }
        const auto length = static_cast<std::uint32_t>(bytes_.size() - start - 4);
        std::memcpy(bytes_.data() + start, &length, 4);
    }

    /// The common entry of all functions with this personality (0: none).
    std::size_t CommonEntry(std::uint64_t personality) {
        const std::size_t start = Open();
        Value<std::uint32_t>(0);
        Byte(1); // version
        for (const char unit : std::string(personality != 0 ? "zPLR" : "zR")) {
            Byte(static_cast<unsigned char>(unit));
        }
        Byte(0);
        Uleb(1);    // code alignment
        Byte(0x78); // data alignment, -8
        Byte(30);   // the return address is in x30
        if (personality != 0) {
            Uleb(11);
            Byte(0); // DW_EH_PE_absptr, here and below
            Value(personality);
            Byte(0);
        } else {
            Uleb(1);
        }
        Byte(0);
        DefineFrameAddress(31, 0);
        Close(start);
        return start;
    }

    void FunctionEntry(std::size_t common, const Function &function, std::uint32_t end,
                       std::optional<std::uint32_t> languageData, bool withLanguageData) {
        const std::size_t start = Open();
        Value(static_cast<std::uint32_t>(bytes_.size() - common));
        Value(reinterpret_cast<std::uint64_t>(image_.base()) + function.offset);
        Value<std::uint64_t>(end - function.offset);
        Uleb(withLanguageData ? 8 : 0);
        if (withLanguageData) {
            Value<std::uint64_t>(languageData ? reinterpret_cast<std::uint64_t>(image_.base()) + *languageData : 0);
        }
        Instructions(function);
        Close(start);
    }

    /// Ends the information and gives it, with a life as long as the process, as the unwinder needs it.
    void *Finish() {
        Value<std::uint32_t>(0);
        auto *kept = new std::vector<std::uint8_t>(std::move(bytes_));
        return kept->data();
    }

  private:
    void DefineFrameAddress(unsigned registerNumber, std::uint64_t offset) {
        Byte(0x0c); // DW_CFA_def_cfa
        Uleb(registerNumber);
        Uleb(offset);
    }
    /// The register was saved at the frame address minus slot * 8.
    void Saved(unsigned registerNumber, unsigned slot) {
        if (registerNumber < 64) {
            Byte(0x80 | registerNumber); // DW_CFA_offset
        } else {
            Byte(0x05); // DW_CFA_offset_extended
            Uleb(registerNumber);
        }
        Uleb(slot);
    }
    void Instructions(const Function &function) {
        unsigned slot = 1;
        switch (function.encoding & kModeMask) {
        case kModeFrame:
            DefineFrameAddress(29, 16);
            Saved(30, slot++);
            Saved(29, slot++);
            break;
        case kModeFrameless:
            DefineFrameAddress(31, static_cast<std::uint64_t>(function.encoding >> 12 & 0xfff) * 16);
            break;
        default:
            throw Refusal("unwind entry of unknown mode at offset " + std::to_string(function.offset));
        }
        for (const RegisterPair &pair : kPairs) {
            if ((function.encoding & pair.bit) != 0) {
                Saved(pair.first, slot++);
                Saved(pair.first + 1, slot++);
            }
        }
    }

    const MappedImage &image_;
    std::vector<std::uint8_t> bytes_;
};

} // namespace

void RegisterUnwinding(const MappedImage &image) {
    const auto info = image.SectionOf<const std::uint8_t>("__unwind_info");
    if (info.empty()) {
        throw Refusal("no unwind table");
    }
    const UnwindTable table = ReadTable(info);
    FrameWriter writer(image);
    std::map<std::uint32_t, std::size_t> commonEntries;
    for (std::size_t i = 0; i + 1 < table.functions.size(); ++i) {
        const Function &function = table.functions[i];
        if (function.encoding == 0) {
            continue; // no unwind information: nothing may throw through it
        }
        const std::uint32_t personality = (function.encoding & kPersonalityMask) >> kPersonalityShift;
        if (!commonEntries.contains(personality)) {
            std::uint64_t address = 0;
            if (personality != 0) {
                std::memcpy(&address, image.base() + table.personalities.at(personality - 1), sizeof address);
            }
            commonEntries[personality] = writer.CommonEntry(address);
        }
        std::optional<std::uint32_t> data;
        if ((function.encoding & kHasLanguageData) != 0) {
            data = table.languageData.at(function.offset);
        }
        writer.FunctionEntry(commonEntries[personality], function, table.functions[i + 1].offset, data,
                             personality != 0);
    }
    __register_frame(writer.Finish());
}

} // namespace device
