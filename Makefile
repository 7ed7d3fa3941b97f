# The two commands of the README: `make demo` and `make test`. Both install what is missing first.
BUILD ?= build
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo

ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
BENCH_BUILD ?= build-bench
FUZZ_SECONDS ?= 60
BENCH_ROWS ?= 1000 10000 100000
DOCS ?= $(BUILD)/docs
DOCS_VERSION := $(shell grep -o 'kwFieldDeck VERSION [0-9.]*' CMakeLists.txt | cut -d' ' -f3)

.PHONY: all deps build demo test clean test-asan fuzz bench docs

all: build

deps:
	@scripts/install-deps.sh

# Configured every time (cheap when nothing changed), so an old cache never hides the tests.
build: deps
	cmake -S . -B $(BUILD) $(CMAKE_FLAGS) -DKWFIELDDECK_BUILD_TESTS=ON
	cmake --build $(BUILD) -j $(JOBS)

demo: build
	@scripts/demo.sh $(BUILD)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure --no-tests=error -j $(JOBS)

# The whole suite under AddressSanitizer and UndefinedBehaviorSanitizer, in its own build folder.
test-asan: deps
	@JOBS=$(JOBS) scripts/test-asan.sh $(ASAN_BUILD)

# Every libFuzzer target for FUZZ_SECONDS each, from its seed corpus (clang).
fuzz:
	@KW_WITH_FUZZ=1 scripts/install-deps.sh
	@JOBS=$(JOBS) FUZZ_SECONDS=$(FUZZ_SECONDS) scripts/fuzz.sh $(FUZZ_BUILD)

# The grid against its peers for each of BENCH_ROWS; table, bench/results/bench.csv and .svg.
bench:
	@KW_WITH_BENCH=1 scripts/install-deps.sh
	@JOBS=$(JOBS) BENCH_ROWS="$(BENCH_ROWS)" scripts/bench.sh $(BENCH_BUILD)

# Reference documentation of the public headers in $(DOCS)/html (Doxygen). No C++ build is needed;
# a public member without a doc comment, or any other Doxygen warning, fails the target.
docs:
	@KW_WITH_DOCS=1 scripts/install-deps.sh
	rm -rf $(DOCS)/html
	mkdir -p $(DOCS)
	KW_DOCS_OUT=$(DOCS) KW_VERSION=$(DOCS_VERSION) doxygen docs/Doxyfile
	@echo "Reference documentation: $(DOCS)/html/index.html"

clean:
	rm -rf $(BUILD)
