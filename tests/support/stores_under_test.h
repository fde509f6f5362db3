#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "host/store.h"

namespace commtest::testing {

// A kind of store that the tests of a program run on.
struct StoreUnderTest {
    std::string name;  // for the name of a test
    StoreEngine engine = StoreEngine::Sqlite;
    std::function<std::unique_ptr<Store>()> makeBare;  // open, without any table
};

inline void PrintTo(const StoreUnderTest& store, std::ostream* out) { *out << store.name; }

// Those of the test program: each says which they are.
const std::vector<StoreUnderTest>& StoresUnderTest();

// An open store with the tables of a catalogue only, and one with the shipped catalogue.
std::unique_ptr<Store> MakeEmptyCatalogue(const StoreUnderTest& kind);
std::unique_ptr<Store> MakeShippedCatalogue(const StoreUnderTest& kind);

// Behind INSTANTIATE_TEST_SUITE_P.
inline const auto kNameOfStore = [](const auto& tested) { return tested.param.name; };

}  // namespace commtest::testing
