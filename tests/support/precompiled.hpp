// What nearly every test includes, compiled once.
#pragma once

#include <gtest/gtest.h>

#include "simulator/precompiled.hpp"
#include "tests/support/home.hpp"
