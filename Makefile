# make run   installs what is missing, builds and starts the program
# make test  installs what is missing, builds and runs every test
# make package builds the Debian packages of the program (and of the reference server) in build/
# make bench installs what is missing, builds and times storage, screens, reports, imports and backups,
#            the reference server's push and pull, and the first sync of the household between two devices
# make serve installs what is missing, builds the reference server and starts it on build/serve-data
# make sync-soak  runs the sync fault simulation for SIM_SEEDS seeds (default 200) from SIM_FIRST_SEED
# make fuzz  installs clang and libFuzzer, builds the fuzz targets of the import parsers and the backup
#            archive reader in build-fuzz/ and runs each in turn for FUZZ_SECONDS (default 600)
BUILD_DIR ?= build
ASAN_DIR  ?= build-asan
FUZZ_DIR  ?= build-fuzz
FUZZ_SECONDS ?= 600
FUZZ_TARGETS := fuzz_importbytes fuzz_qifparser fuzz_parsecsv fuzz_zipreader
GENERATOR := $(shell command -v ninja >/dev/null 2>&1 && echo Ninja || echo "Unix Makefiles")
LAUNCHER  := $(shell command -v ccache >/dev/null 2>&1 && echo -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
CONFIGURE  = cmake -S . -G "$(GENERATOR)" -DCMAKE_BUILD_TYPE=RelWithDebInfo $(LAUNCHER)

.PHONY: deps build run test package sanitize bench serve fuzz fuzz-build clean sync-soak

deps:
	@scripts/install-deps

build: deps
	@# the generator is chosen after deps, which may have just installed ninja
	$(MAKE) --no-print-directory configure-and-build

.PHONY: configure-and-build
configure-and-build:
	$(CONFIGURE) -B $(BUILD_DIR)
	cmake --build $(BUILD_DIR)

run: build
	$(BUILD_DIR)/ombrel

test: build
	cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure

package: build
	cd $(BUILD_DIR) && cpack -G DEB

bench: build
	$(BUILD_DIR)/bench/ombrel_bench
	$(BUILD_DIR)/bench/ombrel_server_bench
	$(BUILD_DIR)/bench/ombrel_sync_bench

# The reference server on a data folder under the build directory; Ctrl+C stops it.
SERVE_DATA   ?= $(BUILD_DIR)/serve-data
SERVE_LISTEN ?= 127.0.0.1:8080
serve: deps
	$(MAKE) --no-print-directory configure-and-serve

.PHONY: configure-and-serve
configure-and-serve:
	$(CONFIGURE) -B $(BUILD_DIR)
	cmake --build $(BUILD_DIR) --target ombrel-server
	$(BUILD_DIR)/server/ombrel-server --data $(SERVE_DATA) --listen $(SERVE_LISTEN)

SIM_SEEDS ?= 200
SIM_FIRST_SEED ?= 1000
# QtTest stops a test function after 5 minutes, and the seeds are rows of one function: lift that.
sync-soak: build
	cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen QTEST_FUNCTION_TIMEOUT=86400000 OMBREL_SIM_SEEDS=$(SIM_SEEDS) \
	    OMBREL_SIM_FIRST_SEED=$(SIM_FIRST_SEED) tests/tst_syncsimulation -maxwarnings 0

sanitize: deps
	$(CONFIGURE) -B $(ASAN_DIR) -DOMBREL_SANITIZE=ON
	cmake --build $(ASAN_DIR)
	cd $(ASAN_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure

fuzz-build:
	@scripts/install-deps --fuzz
	$(MAKE) --no-print-directory configure-and-build-fuzz

.PHONY: configure-and-build-fuzz
configure-and-build-fuzz:
	CC=clang-14 CXX=clang++-14 $(CONFIGURE) -B $(FUZZ_DIR) -DOMBREL_FUZZ=ON
	cmake --build $(FUZZ_DIR) --target $(FUZZ_TARGETS)

# One target at a time, each with the machine to itself. New inputs collect in $(FUZZ_DIR)/corpus;
# the seeds are the shared test files and the inputs kept from earlier findings.
TESTDATA := ../shared/testdata
SEEDS_importbytes := $(TESTDATA)/qif $(TESTDATA)/csv tests/fuzz/regressions/importbytes
SEEDS_qifparser   := $(TESTDATA)/qif tests/fuzz/regressions/qifparser
SEEDS_parsecsv    := $(TESTDATA)/csv tests/fuzz/regressions/parsecsv
SEEDS_zipreader   := tests/fuzz/regressions/zipreader

fuzz: fuzz-build
	$(MAKE) --no-print-directory -j1 $(patsubst fuzz_%,run-fuzz-%,$(FUZZ_TARGETS))

run-fuzz-%:
	mkdir -p $(FUZZ_DIR)/corpus/$*
	$(FUZZ_DIR)/tests/fuzz/fuzz_$* -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 \
		-artifact_prefix=$(FUZZ_DIR)/$*- $(FUZZ_DIR)/corpus/$* $(SEEDS_$*)

clean:
	rm -rf $(BUILD_DIR) $(ASAN_DIR) $(FUZZ_DIR)
