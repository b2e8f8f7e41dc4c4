// imp_implementationWithBlock: methods that call a block, through closures made with libffi.

#include "objc/encoding_reader.hpp"
#include "objc/runtime.hpp"
#include "runtime/lasting.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <ffi.h>
#include <mutex>
#include <vector>

namespace sim {
namespace {

/// The head of every block, by the Clang block ABI.
struct BlockLayout {
    void *isa;
    int flags;
    int reserved;
    void (*invoke)();
    const void *descriptor;
};
constexpr int kHasCopyDispose = 1 << 25;
constexpr int kHasSignature = 1 << 30;

/// The text after the descriptor's two sizes and, where there are any, its copy and dispose functions.
const char *SignatureOf(const BlockLayout &block) {
    if ((block.flags & kHasSignature) == 0) {
        return nullptr;
    }
    const char *place = static_cast<const char *>(block.descriptor) + (2 * sizeof(unsigned long));
    if ((block.flags & kHasCopyDispose) != 0) {
        place += 2 * sizeof(void (*)());
    }
    const char *signature = nullptr;
    std::memcpy(static_cast<void *>(&signature), place, sizeof(signature));
    return signature;
}

[[noreturn]] void Unsupported(const char *what, const char *text) {
    std::fprintf(stderr, "imp_implementationWithBlock: %s: %s\n", what, text);
    std::abort();
}

/// Everything that one method made from a block needs, for as long as the process lives.
struct BlockMethod {
    const void *block = nullptr;
    std::deque<ffi_type> structures;
    std::deque<std::vector<ffi_type *>> fieldLists;
    std::vector<ffi_type *> blockTypes;  // block, receiver, arguments
    std::vector<ffi_type *> methodTypes; // receiver, selector, arguments
    ffi_cif blockInterface{};
    ffi_cif methodInterface{};
    ffi_closure *closure = nullptr;
};

/// Reads the types of a signature from the front.
class TypeReader {
  public:
    TypeReader(const char *signature, BlockMethod &owner) : whole_(signature), reader_{signature}, owner_(owner) {}

    bool AtEnd() {
        reader_.SkipNoise();
        return *reader_.at == '\0';
    }

    ffi_type *Next() {
        reader_.SkipNoise();
        const char code = *reader_.at;
        if (code == '{') {
            return Structure();
        }
        reader_.SkipType();
        switch (code) {
        case 'v':
            return &ffi_type_void;
        case 'B':
        case 'C':
            return &ffi_type_uint8;
        case 'c':
            return &ffi_type_sint8;
        case 's':
            return &ffi_type_sint16;
        case 'S':
            return &ffi_type_uint16;
        case 'i':
            return &ffi_type_sint32;
        case 'I':
            return &ffi_type_uint32;
        case 'l':
        case 'q':
            return &ffi_type_sint64;
        case 'L':
        case 'Q':
            return &ffi_type_uint64;
        case 'f':
            return &ffi_type_float;
        case 'd':
            return &ffi_type_double;
        case '*':
        case '#':
        case ':':
        case '^':
        case '@':
            return &ffi_type_pointer;
        default:
            Unsupported("cannot pass a type of the signature", whole_);
        }
    }

  private:
    /// A structure: {name=fields}.
    ffi_type *Structure() {
        reader_.at += std::strcspn(reader_.at, "=}");
        if (*reader_.at != '=') {
            Unsupported("structure without fields in the signature", whole_);
        }
        ++reader_.at;
        std::vector<ffi_type *> fields;
        while (!AtEnd() && *reader_.at != '}') {
            fields.push_back(Next());
        }
        if (AtEnd()) {
            Unsupported("unfinished structure in the signature", whole_);
        }
        ++reader_.at;
        fields.push_back(nullptr);
        owner_.fieldLists.push_back(std::move(fields));
        owner_.structures.push_back({0, 0, FFI_TYPE_STRUCT, owner_.fieldLists.back().data()});
        return &owner_.structures.back();
    }

    const char *whole_;
    objc::EncodingReader reader_;
    BlockMethod &owner_;
};

/// The closure's body: called as (self, _cmd, arguments...), calls the block as (block, self, arguments...).
void CallBlock(ffi_cif *, void *result, void **methodArguments, void *context) {
    const BlockMethod &method = *static_cast<const BlockMethod *>(context);
    const void *block = method.block;
    std::vector<void *> blockArguments(method.blockTypes.size());
    blockArguments[0] = static_cast<void *>(&block);
    for (std::size_t i = 1; i < blockArguments.size(); ++i) {
        blockArguments[i] = i == 1 ? methodArguments[0] : methodArguments[i];
    }
    ffi_call(const_cast<ffi_cif *>(&method.blockInterface), static_cast<const BlockLayout *>(block)->invoke, result,
             blockArguments.data());
}

/// Describes both sides of the call by the block's signature.
void ReadSignature(BlockMethod &method, const char *signature) {
    TypeReader reader(signature, method);
    ffi_type *result = reader.Next();
    while (!reader.AtEnd()) {
        method.blockTypes.push_back(reader.Next());
    }
    if (method.blockTypes.empty()) {
        Unsupported("signature without the block itself", signature);
    }
    method.methodTypes = {&ffi_type_pointer, &ffi_type_pointer};
    if (method.blockTypes.size() > 2) {
        method.methodTypes.insert(method.methodTypes.end(), method.blockTypes.begin() + 2, method.blockTypes.end());
    }
    const auto prepare = [&](ffi_cif &interface, std::vector<ffi_type *> &types) {
        if (ffi_prep_cif(&interface, FFI_DEFAULT_ABI, static_cast<unsigned>(types.size()), result, types.data()) !=
            FFI_OK) {
            Unsupported("cannot call by the signature", signature);
        }
    };
    prepare(method.blockInterface, method.blockTypes);
    prepare(method.methodInterface, method.methodTypes);
}

/// All methods that were made, kept for good: nobody tells when the last call of an implementation is over.
struct BlockMethods {
    std::mutex mutex;
    std::deque<BlockMethod> methods; // they stay where they are
};

BlockMethod &NewMethod() {
    auto &all = Lasting<BlockMethods>();
    const std::lock_guard lock(all.mutex);
    return all.methods.emplace_back();
}

} // namespace
} // namespace sim

extern "C" objc::IMP imp_implementationWithBlock(objc::id block) {
    using namespace sim;
    const auto *layout = reinterpret_cast<const BlockLayout *>(block);
    const char *signature = SignatureOf(*layout);
    if (signature == nullptr) {
        Unsupported("block without a signature", "");
    }
    BlockMethod &method = NewMethod();
    ReadSignature(method, signature);
    method.block = _Block_copy(layout);
    void *code = nullptr;
    method.closure = static_cast<ffi_closure *>(ffi_closure_alloc(sizeof(ffi_closure), &code));
    if (method.closure == nullptr ||
        ffi_prep_closure_loc(method.closure, &method.methodInterface, &CallBlock, &method, code) != FFI_OK) {
        Unsupported("no closure for the signature", signature);
    }
    return reinterpret_cast<objc::IMP>(code);
}
