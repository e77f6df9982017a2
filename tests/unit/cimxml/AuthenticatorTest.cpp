#include <cimxml/access/Authenticator.h>
#include <gtest/gtest.h>

#include "QuickHash.h"

namespace cimxml {
namespace {

class AuthenticatorTest : public testing::Test {
protected:
    const Authenticator authenticator{
        {{"ann", HashLike("sesame", kQuickHash)}, {"bob", HashLike("open:up", kQuickHash)}}};

    bool IsGranted(const std::string& authorization) const {
        return authenticator.Authenticate(authorization).isGranted;
    }
};

TEST_F(AuthenticatorTest, RightPassword_IsGranted) {
    EXPECT_TRUE(IsGranted("Basic YW5uOnNlc2FtZQ=="));  // ann:sesame
    EXPECT_TRUE(IsGranted("basic Ym9iOm9wZW46dXA="));  // bob:open:up
    EXPECT_EQ(authenticator.Authenticate("Basic YW5uOnNlc2FtZQ==").user, "'ann'");
}

TEST_F(AuthenticatorTest, WrongPassword_IsRefused) {
    EXPECT_FALSE(IsGranted("Basic YW5uOlNlc2FtZQ=="));  // ann:Sesame
    EXPECT_FALSE(IsGranted("Basic YW5uOg=="));          // ann:
    EXPECT_FALSE(IsGranted("Basic YW5u"));              // ann
    EXPECT_FALSE(IsGranted("Basic Ym9iOnNlc2FtZQ=="));  // bob:sesame
}

TEST_F(AuthenticatorTest, Stranger_IsRefusedEvenWithAUsersPassword) {
    const auto verdict = authenticator.Authenticate("Basic ZXZlOnNlc2FtZQ==");  // eve:sesame
    EXPECT_FALSE(verdict.isGranted);
    EXPECT_EQ(verdict.user, "'eve'");
}

TEST_F(AuthenticatorTest, WhatIsNotBasic_IsRefused) {
    EXPECT_FALSE(IsGranted(""));
    EXPECT_FALSE(IsGranted("Bearer YW5uOnNlc2FtZQ=="));
    EXPECT_FALSE(IsGranted("Basic"));
    EXPECT_FALSE(IsGranted("Basic !!!!"));
    EXPECT_FALSE(IsGranted("Basic " + std::string(2000, 'A')));
}

TEST_F(AuthenticatorTest, NameThatCouldForgeALogLine_IsEscaped) {
    EXPECT_EQ(authenticator.Authenticate("Basic YQpiOng=").user,
              "'a\\x0ab'");  // a, line break, b:x
    EXPECT_EQ(authenticator.Authenticate("Basic YSdcYjp4").user, "'a\\'\\\\b'");  // a'\b:x
    EXPECT_EQ(authenticator.Authenticate("Basic /w==").user, "'\\xff'");
}

TEST_F(AuthenticatorTest, PasswordWithNul_IsRefused) {
    EXPECT_FALSE(IsGranted("Basic YW5uOnNlc2FtZQA="));   // ann:sesame, NUL
    EXPECT_FALSE(IsGranted("Basic YW5uOnNlc2FtZQB4"));   // ann:sesame, NUL, x
    EXPECT_FALSE(IsGranted("Basic YW5uOnNlc2FtZQ==="));  // too much padding
}

TEST_F(AuthenticatorTest, Sameness_IsExact) {
    EXPECT_TRUE(Authenticator::IsSame("a", "a"));
    EXPECT_FALSE(Authenticator::IsSame("a", "A"));
    EXPECT_FALSE(Authenticator::IsSame("a", "ab"));
}

}  // namespace
}  // namespace cimxml
