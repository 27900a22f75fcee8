#!/usr/bin/env bash
# Prints the non-blank lines of C++ in tests/ and in the product (everything else outside the
# build folders) and their ratio; the suite aims at no more than 0.40.
set -euo pipefail
cd "$(dirname "$0")/.."
count() { grep -cv '^[[:space:]]*$' "$@" 2>/dev/null | awk -F: '{ n += $NF } END { print n + 0 }'; }
mapfile -t tests < <(git ls-files --cached --others --exclude-standard -- 'tests/*.cpp' 'tests/*.h')
mapfile -t product < <(git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h' ':!tests/' ':!build*/')
t=$(count "${tests[@]}")
p=$(count "${product[@]}")
awk -v t="$t" -v p="$p" 'BEGIN { printf "tests %d, product %d, ratio %.2f\n", t, p, t / p }'
