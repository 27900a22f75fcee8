#!/usr/bin/env bash
# Fails when a C++ source does not read as the project's .clang-format writes it, and names it.
# The sources are the tracked ones in a git checkout, else every .cpp and .h outside the build
# folders.
set -euo pipefail
cd "$(dirname "$0")/.."
if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
  git ls-files -z '*.cpp' '*.h'
else
  find . -path './build*' -prune -o -path './install' -prune -o -type f \( -name '*.cpp' -o -name '*.h' \) -print0
fi | xargs -0 "${CLANG_FORMAT:-clang-format}" --dry-run -Werror
