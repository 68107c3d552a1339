#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Fails when a source is not formatted as .clang-format says. `--fix` formats it. Versions differ in
# details, so it is always the same one, which every supported Debian has.
#
#   check_format.sh [--fix] PROJECT_ROOT
set -euo pipefail
how=(--dry-run --Werror)
[ "$1" = --fix ] && { how=(-i); shift; }
cd "$1"
find src tests tools benchmarks -name '*.cpp' -o -name '*.h' | xargs clang-format-19 "${how[@]}"
