/// Handles of any size, the same at every run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvik_bench {

/// A handle with each section, filled up with rules, plain keys and comments to about that many
/// bytes. Valid; with a license file its rules of `licenses` ask for that file's fingerprint.
std::string validHandle(std::size_t bytes, const std::string& licenseFile = {});

/// A handle of about that many bytes in which each line of its one section is at fault, in turn for
/// another reason.
std::string faultyHandle(std::size_t bytes);

std::int64_t linesOf(const std::string& text);

}  // namespace tarvik_bench
