# `make demo` and `make test` are all that a newcomer needs; each target installs the Debian
# packages that it lacks.
.PHONY: demo test fuzz dist bench coverage lint pictures clean

BUILD_PACKAGES := cmake ninja-build g++ g++-mingw-w64-x86-64-posix mingw-w64-tools googletest python3 \
  nlohmann-json3-dev
RUN_PACKAGES := wine wine64 xvfb openbox fonts-ipafont locales-all

CMAKE := cmake -G Ninja -DCMAKE_BUILD_TYPE=Release
WINDOWS := build/windows
NATIVE := build/native
COVERAGE := build/coverage
FUZZ := build/fuzz
LINT := build/lint
TOOLKIT := build/toolkit
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

# All is built first, by itself; then the tests run beside each other, those that take long first. What
# shows itself on a display comes last, two at a time: with more beside it a window manager lags behind.
BUILDS := native windows fuzzers lint-packages run-packages
SUITE := $(MAKE) --no-print-directory -O $(addprefix -o ,$(BUILDS))
test: $(BUILDS)
	+@$(SUITE) -j3 openings lint-product soak faults native-tests fuzz
	+@$(SUITE) -j2 windows-tests language-tests display-tests

.PHONY: native-tests
native-tests: native
	@ctest --test-dir $(NATIVE) --output-on-failure

# On displays of their own.
.PHONY: windows-tests openings openings-0 openings-1
windows-tests: windows run-packages
	@$(SESSION) --virtual ctest --test-dir $(WINDOWS) --output-on-failure
# Where nothing has to be seen there is no display.
openings: openings-0 openings-1
openings-0 openings-1: openings-%: windows run-packages
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-$@ QUORVEL_GRAPHICS=null GTEST_TOTAL_SHARDS=2 \
	  GTEST_SHARD_INDEX=$* $(SESSION) wine $(WINDOWS)/bin/openings_tests.exe

# A user who does whatever comes, at every dialog, in two parts; for so many steps or, where it is told,
# for so many seconds. `make soak-run SOAK_RUN='SelRgb 20240417 2000'` replays one run. The record
# of the run under way is in build/soak-record-*.txt.
SOAK_STEPS := 40000
SOAK_SECONDS :=
SOAK_SEED := 20240417
SOAK_RUN :=
.PHONY: soak soak-0 soak-1 soak-run
soak: soak-0 soak-1
soak-0: SOAK_TESTS := *
soak-1: SOAK_TESTS := Soak.DoesNoHarm
soak-0 soak-1: soak-%: windows run-packages
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-$@ QUORVEL_GRAPHICS=null \
	  GTEST_FILTER='$(SOAK_TESTS)' QUORVEL_SOAK_SECONDS=$(SOAK_SECONDS) \
	  QUORVEL_SOAK_STEPS=$$(($(SOAK_STEPS) / 2)) QUORVEL_SOAK_SEED=$$(($(SOAK_SEED) + $* * 1000000)) \
	  QUORVEL_SOAK_RECORD=build/soak-record-$*.txt $(SESSION) wine $(WINDOWS)/bin/soak_tests.exe
soak-run: windows run-packages
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-$@ QUORVEL_GRAPHICS=null QUORVEL_SOAK_RUN='$(SOAK_RUN)' \
	  QUORVEL_SOAK_RECORD=build/soak-record-run.txt \
	  $(SESSION) wine $(WINDOWS)/bin/soak_tests.exe --gtest_filter='Soak.*'

# Every FAULT_STEP-th call of the platform that a dialog makes fails once, in two parts. All of them:
# `make faults FAULT_STEP=1`.
FAULT_STEP := 150
.PHONY: faults faults-0 faults-1
faults: faults-0 faults-1
faults-0 faults-1: faults-%: windows run-packages
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-$@ QUORVEL_GRAPHICS=null QUORVEL_FAULT_STEP=$(FAULT_STEP) \
	  GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=$* $(SESSION) wine $(WINDOWS)/bin/fault_tests.exe

# Every value that nobody should give, for every argument; `make test` tries every fifth.
.PHONY: hostile
hostile: windows run-packages
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-$@ QUORVEL_GRAPHICS=null $(SESSION) \
	  wine $(WINDOWS)/bin/hostile_tests.exe

# Every dialog on displays of these scales: 100, 125, 150 and 200 %.
DPIS := 96 120 144 192
.PHONY: display-tests $(addprefix display-tests-,$(DPIS))
display-tests: $(addprefix display-tests-,$(DPIS))
$(addprefix display-tests-,$(DPIS)): display-tests-%: windows run-packages
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-$@ QUORVEL_DPI=$* $(SESSION) --virtual \
	  wine $(WINDOWS)/bin/display_tests.exe

# The tests of windows where the system's code page is another than 932: 1252 and 65001. What shows
# pixels and no text, and what is done a thousand times, is left out unless told otherwise:
# `make language-tests LANGUAGE_TESTS='*'`.
LANGUAGES := en_US hi_IN
LANGUAGE_TESTS := -Runs/LayoutFrameEditDlgPreview.*:Grid/SelColorButton.*:*AThousandTimes*
.PHONY: language-tests $(addprefix language-tests-,$(LANGUAGES))
language-tests: $(addprefix language-tests-,$(LANGUAGES))
$(addprefix language-tests-,$(LANGUAGES)): language-tests-%: windows run-packages
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-$@ QUORVEL_LOCALE=$* $(SESSION) --virtual \
	  wine $(WINDOWS)/bin/windows_tests.exe --gtest_filter='$(LANGUAGE_TESTS)'

# Each parser against inputs that nobody thought of, for so many seconds each: `make fuzz SECONDS=7200`.
# The seeds are made anew; inputs that found new ways stay in build/fuzz/found, a failing one in
# build/fuzz/failed. Of what was found only what it takes is kept: from 16,384 files on the fuzzer's
# own list of them breaks the limit that is meant for what the parsers allocate.
SECONDS := 20
FUZZERS := command_line ex_page_file expression field_macro grid_page_file host_value
.PHONY: fuzzers $(addprefix fuzz-,$(FUZZERS))
fuzzers: build-packages | build
	@tools/install-packages clang libclang-rt-14-dev
	@$(CMAKE) -S . -B $(FUZZ) -DCMAKE_CXX_COMPILER=clang++ -DQUORVEL_FUZZ=ON >$(FUZZ).log \
	  || { cat $(FUZZ).log; exit 1; }
	@cmake --build $(FUZZ) --target write_seeds $(addsuffix _fuzz,$(FUZZERS))
	@$(FUZZ)/bin/write_seeds $(FUZZ)/seeds
fuzz: $(addprefix fuzz-,$(FUZZERS))
$(addprefix fuzz-,$(FUZZERS)): fuzz-%: fuzzers
	@mkdir -p $(FUZZ)/found/$* $(FUZZ)/failed
	@rm -rf $(FUZZ)/fewer/$* && mkdir -p $(FUZZ)/fewer/$*
	@$(FUZZ)/bin/$*_fuzz -merge=1 $(FUZZ)/fewer/$* $(FUZZ)/found/$* >$(FUZZ)/$*.log 2>&1 \
	  || { tail -n 40 $(FUZZ)/$*.log; exit 1; }
	@rm -rf $(FUZZ)/found/$* && mv $(FUZZ)/fewer/$* $(FUZZ)/found/$*
	@$(FUZZ)/bin/$*_fuzz -max_total_time=$(SECONDS) -print_final_stats=1 -malloc_limit_mb=1 \
	  -artifact_prefix=$(FUZZ)/failed/$*- $(FUZZ)/found/$* $(FUZZ)/seeds/$* >$(FUZZ)/$*.log 2>&1 \
	  || { tail -n 40 $(FUZZ)/$*.log; exit 1; }
	@echo "fuzz: $*: $$(sed -n 's/^stat::number_of_executed_units: *//p' $(FUZZ)/$*.log) executions, nothing found"

# What a host builds against and ships with, in dist/, and all of it with the documents as one zip.
dist: configure-windows
	@cmake --build $(WINDOWS) --target Quorvel QuorvelC64 quorvel_cli quorvel_gallery
	@rm -rf dist
	@cmake --install $(WINDOWS) --prefix dist >build/dist.log || { cat build/dist.log; exit 1; }
	@cmake -D DIST=dist -P $(WINDOWS)/Package.cmake

# One table of the whole product against the platform's own work and a toolkit's dialogs; kept in
# build/bench.json. Status 1 when a row does not hold its limit.
bench: configure-windows run-packages
	@tools/install-packages qtbase5-dev
	@cmake --build $(WINDOWS) --target quorvel_bench
	@$(CMAKE) -S bench/toolkit -B $(TOOLKIT) >$(TOOLKIT).log || { cat $(TOOLKIT).log; exit 1; }
	@cmake --build $(TOOLKIT)
	@$(SESSION) --virtual tools/run_benchmarks.py $(WINDOWS) $(TOOLKIT)/toolkit_bench \
	  build/bench.json $(BENCH_RUNS)

# Lines that tests reach: of the window-free code natively, of the dialogs and what is below them by the
# tests of windows and some of the soak.
GCOVR := gcovr --root . --print-summary
.PHONY: coverage-native coverage-windows
coverage: coverage-native coverage-windows
coverage-native: build-packages | build
	@tools/install-packages gcovr
	@$(CMAKE) -S . -B $(COVERAGE) -DCMAKE_BUILD_TYPE=Debug -DQUORVEL_COVERAGE=ON >$(COVERAGE).log \
	  || { cat $(COVERAGE).log; exit 1; }
	@cmake --build $(COVERAGE)
	@ctest --test-dir $(COVERAGE) --output-on-failure
	@$(GCOVR) $(COVERAGE) --object-directory $(COVERAGE) --exclude tests/ --exclude $(COVERAGE)/ \
	  --fail-under-line 98 --txt build/coverage.txt
	@cat build/coverage.txt
	@echo "KivData64 and KivComm64, branches but those of exceptions:"
	@$(GCOVR) $(COVERAGE) --object-directory $(COVERAGE) --filter common/kivdata/ \
	  --filter common/kivcomm/ --exclude-throw-branches --fail-under-line 98 \
	  --fail-under-branch 90 --txt build/coverage-data.txt
coverage-windows: run-packages | build
	@tools/install-packages gcovr
	@$(CMAKE) -S . -B $(COVERAGE)-windows -DCMAKE_BUILD_TYPE=Debug -DQUORVEL_COVERAGE=ON \
	  -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake >$(COVERAGE)-windows.log \
	  || { cat $(COVERAGE)-windows.log; exit 1; }
	@cmake --build $(COVERAGE)-windows --target windows_tests soak_tests
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-coverage $(SESSION) --virtual \
	  wine $(COVERAGE)-windows/bin/windows_tests.exe --gtest_filter='$(COVERED_TESTS)'
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-coverage QUORVEL_GRAPHICS=null QUORVEL_SOAK_STEPS=20000 \
	  $(SESSION) wine $(COVERAGE)-windows/bin/soak_tests.exe --gtest_filter=Soak.DoesNoHarm
	@$(GCOVR) $(COVERAGE)-windows --gcov-executable x86_64-w64-mingw32-gcov-posix \
	  --filter app/ --filter dialogs/ --filter common/ --fail-under-line 90 \
	  --txt build/coverage-windows.txt
	@cat build/coverage-windows.txt
# Not the command line and files of the product, which this build has not, and nothing twice a
# thousand times.
COVERED_TESTS := -*AThousandTimes*:CommandLine*:EditLayout*Command*:ShowLayout*:CHost*:ProductFiles*

# The static checks: of everything, built with all of the compiler's warnings, which precompiled headers
# cost some of; and of the product alone, a third of the work, in `make test`.
.PHONY: lint-packages lint-product
lint-packages: build-packages | build
	@tools/install-packages clang-tidy cppcheck
	@$(CMAKE) -S . -B $(LINT) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64.cmake \
	  -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >$(LINT).log || { cat $(LINT).log; exit 1; }
lint: lint-packages
	@cmake --build $(LINT)
	@tools/lint $(LINT)
lint-product: lint-packages
	@tools/lint $(LINT) common dialogs app

# The pictures of the documents, taken anew from the dialogs as they are, at 100 % and at 200 %.
pictures: configure-windows run-packages
	@cmake --build $(WINDOWS) --target quorvel_gallery
	@mkdir -p docs/pictures/200-percent
	@$(SESSION) --virtual wine $(WINDOWS)/bin/quorvel-gallery.exe --tour docs/pictures
	@QUORVEL_WINEPREFIX=$(abspath build)/wine-pictures QUORVEL_DPI=192 $(SESSION) --virtual \
	  wine $(WINDOWS)/bin/quorvel-gallery.exe --tour docs/pictures/200-percent

clean:
	@rm -rf build dist
