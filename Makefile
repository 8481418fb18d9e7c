# `make demo` and `make test` are all that a newcomer needs; each target installs the Debian
# packages that it lacks.
.PHONY: demo test dist bench coverage lint pictures clean

BUILD_PACKAGES := cmake ninja-build g++ g++-mingw-w64-x86-64-posix mingw-w64-tools googletest
RUN_PACKAGES := wine wine64 xvfb openbox fonts-ipafont locales-all

CMAKE := cmake -G Ninja -DCMAKE_BUILD_TYPE=Release
WINDOWS := build/windows
NATIVE := build/native
COVERAGE := build/coverage
SESSION := tools/wine-session
TOUR := build/demo

.PHONY: build-packages run-packages
build-packages:
	@tools/install-packages $(BUILD_PACKAGES)
run-packages: build-packages
	@tools/install-packages $(RUN_PACKAGES)

# Two builds: the product with its tests for Windows, the window-free code with sanitizers.
.PHONY: configure-windows windows native
configure-windows: build-packages | build
	@$(CMAKE) -S . -B $(WINDOWS) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake >$(WINDOWS).log \
	  || { cat $(WINDOWS).log; exit 1; }
windows: configure-windows
	@cmake --build $(WINDOWS)
native: build-packages | build
	@$(CMAKE) -S . -B $(NATIVE) -DQUORVEL_SANITIZE=ON >$(NATIVE).log \
	  || { cat $(NATIVE).log; exit 1; }
	@cmake --build $(NATIVE)
build:
	@mkdir -p build

# The gallery on the display; without one it tours every dialog on a virtual display and leaves
# their pictures in build/demo.
demo: configure-windows run-packages
	@cmake --build $(WINDOWS) --target quorvel_gallery
ifeq ($(DISPLAY),)
	@mkdir -p $(TOUR)
	@$(SESSION) wine $(WINDOWS)/bin/quorvel-gallery.exe --tour $(TOUR)
else
	@$(SESSION) wine $(WINDOWS)/bin/quorvel-gallery.exe
endif

test: native windows run-packages
	@ctest --test-dir $(NATIVE) --output-on-failure
	@$(SESSION) --virtual ctest --test-dir $(WINDOWS) --output-on-failure

# What a host builds against and ships with, in dist/.
dist: configure-windows
	@cmake --build $(WINDOWS) --target Quorvel quorvel_cli quorvel_gallery
	@rm -rf dist
	@cmake --install $(WINDOWS) --prefix dist >build/dist.log || { cat build/dist.log; exit 1; }

# Ratios against the platform's own work; kept in build/bench.json.
bench: configure-windows run-packages
	@cmake --build $(WINDOWS) --target quorvel_bench
	@$(SESSION) --virtual wine $(WINDOWS)/bin/quorvel_bench.exe build/bench.json

# Lines of the window-free code that its tests reach.
coverage: build-packages | build
	@tools/install-packages gcovr
	@$(CMAKE) -S . -B $(COVERAGE) -DCMAKE_BUILD_TYPE=Debug -DQUORVEL_COVERAGE=ON >$(COVERAGE).log \
	  || { cat $(COVERAGE).log; exit 1; }
	@cmake --build $(COVERAGE)
	@ctest --test-dir $(COVERAGE) --output-on-failure
	@gcovr --root . --object-directory $(COVERAGE) --exclude tests/ --exclude $(COVERAGE)/ \
	  --fail-under-line 95 --txt build/coverage.txt --print-summary
	@cat build/coverage.txt

lint: windows
	@tools/install-packages clang-tidy
	@tools/lint $(WINDOWS)

# The pictures of the documents, taken anew from the dialogs as they are.
pictures: configure-windows run-packages
	@cmake --build $(WINDOWS) --target quorvel_gallery
	@mkdir -p docs/pictures
	@$(SESSION) --virtual wine $(WINDOWS)/bin/quorvel-gallery.exe --tour docs/pictures

clean:
	@rm -rf build dist
