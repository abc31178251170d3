# make run   installs what is missing, builds and starts the program
# make test  installs what is missing, builds and runs every test
# make bench installs what is missing, builds and times the storage against the SQLite C API
BUILD_DIR ?= build
ASAN_DIR  ?= build-asan
GENERATOR := $(shell command -v ninja >/dev/null 2>&1 && echo Ninja || echo "Unix Makefiles")
LAUNCHER  := $(shell command -v ccache >/dev/null 2>&1 && echo -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
CONFIGURE  = cmake -S . -G "$(GENERATOR)" -DCMAKE_BUILD_TYPE=RelWithDebInfo $(LAUNCHER)

.PHONY: deps build run test sanitize bench clean

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

bench: build
	$(BUILD_DIR)/bench/ombrel_bench

sanitize: deps
	$(CONFIGURE) -B $(ASAN_DIR) -DOMBREL_SANITIZE=ON
	cmake --build $(ASAN_DIR)
	cd $(ASAN_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure

clean:
	rm -rf $(BUILD_DIR) $(ASAN_DIR)
