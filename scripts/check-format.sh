#!/usr/bin/env bash
# Fails, naming the files, when a C++ source differs from the layout of the root .clang-format.
# Usage: scripts/check-format.sh [clang-format program]
set -uo pipefail
cd "$(dirname "$0")/.."
format=${1:-clang-format}
if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
    mapfile -t files < <(git ls-files '*.cpp' '*.h')
else
    mapfile -t files < <(find src tests apps designer bench examples -name '*.cpp' -o -name '*.h')
fi
differ=()
for file in "${files[@]}"; do
    "$format" --dry-run -Werror "$file" >/dev/null 2>&1 || differ+=("$file")
done
if [ ${#differ[@]} -gt 0 ]; then
    echo "These files differ from .clang-format; '$format -i FILE' lays them out:"
    printf '  %s\n' "${differ[@]}"
    exit 1
fi
echo "${#files[@]} files follow .clang-format."
