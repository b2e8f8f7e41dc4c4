#include "adapters/method_types.hpp"

#include <gtest/gtest.h>

namespace corvel {
namespace {

TEST(MethodTypes, WordsTravelInGeneralRegisters) {
    // As compilers for the phone write them, with and without offsets, qualifiers, names and signatures of blocks.
    EXPECT_TRUE(TravelsInGeneralRegisters("v16@0:8", 0));
    EXPECT_TRUE(TravelsInGeneralRegisters("@@:", 0));
    EXPECT_TRUE(TravelsInGeneralRegisters("B28@0:8@\"NSString\"16i24", 2));
    EXPECT_TRUE(TravelsInGeneralRegisters("v24@0:8@?<v@?@\"NSError\">16", 1));
    EXPECT_TRUE(TravelsInGeneralRegisters("Vv24@0:8r^{CGRect={CGPoint=dd}{CGSize=dd}}16", 1));
    EXPECT_TRUE(TravelsInGeneralRegisters("q48@0:8*16:24#32^?40", 4));
    EXPECT_TRUE(TravelsInGeneralRegisters("v@:@@@@@@", 6));
}

TEST(MethodTypes, NothingElseDoes) {
    EXPECT_FALSE(TravelsInGeneralRegisters(nullptr, 0));
    EXPECT_FALSE(TravelsInGeneralRegisters("", 0));
    EXPECT_FALSE(TravelsInGeneralRegisters("d16@0:8", 0));
    EXPECT_FALSE(TravelsInGeneralRegisters("{CGRect={CGPoint=dd}{CGSize=dd}}16@0:8", 0));
    EXPECT_FALSE(TravelsInGeneralRegisters("v20@0:8f16", 1));
    EXPECT_FALSE(TravelsInGeneralRegisters("v32@0:8{_NSRange=QQ}16", 1));
    EXPECT_FALSE(TravelsInGeneralRegisters("v48@0:8@16{CGRect={CGPoint=dd}{CGSize=dd}}24", 2));
    EXPECT_FALSE(TravelsInGeneralRegisters("v@:(u=id)", 1));
    EXPECT_FALSE(TravelsInGeneralRegisters("v24@0:8@16", 0)) << "one argument too many";
    EXPECT_FALSE(TravelsInGeneralRegisters("v24@0:8@16", 2)) << "one too few";
    EXPECT_FALSE(TravelsInGeneralRegisters("v", 0));
    EXPECT_FALSE(TravelsInGeneralRegisters("v@:@@@@@@@", 7)) << "the last one would lie on the stack";
    EXPECT_FALSE(TravelsInGeneralRegisters("v@:{unfinished", 1));
}

TEST(MethodTypes, AnObjectIsToldFromWhatElseAWordHolds) {
    EXPECT_TRUE(TakesObjectFirst("v24@0:8@16"));
    EXPECT_TRUE(TakesObjectFirst("v32@0:8@\"NSString\"16q24"));
    for (const char *types : {"v24@0:8q16", "v24@0:8@?16", "v24@0:8^@16", "v24@0:8#16", "v16@0:8", "v"}) {
        EXPECT_FALSE(TakesObjectFirst(types)) << types;
    }
}

TEST(MethodTypes, GettersAreTakenByTheirResult) {
    for (const char *types : {"q16@0:8", "i16@0:8", "Q@:", "Vs16@0:8"}) {
        EXPECT_TRUE(IsIntegerGetter(types)) << types;
        EXPECT_FALSE(IsBoolGetter(types)) << types;
    }
    EXPECT_TRUE(IsBoolGetter("B16@0:8"));
    EXPECT_FALSE(IsIntegerGetter("B16@0:8"));
    for (const char *types : {"d16@0:8", "f16@0:8", "@16@0:8", "v16@0:8", "B24@0:8@16", "q24@0:8q16", "^q16@0:8", ""}) {
        EXPECT_FALSE(IsIntegerGetter(types)) << types;
        EXPECT_FALSE(IsBoolGetter(types)) << types;
    }
    EXPECT_FALSE(IsBoolGetter(nullptr));
}

} // namespace
} // namespace corvel
