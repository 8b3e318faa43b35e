// SPDX-License-Identifier: MIT
// Holds the precompiled headers of the test programs; see CMakeLists.txt.
