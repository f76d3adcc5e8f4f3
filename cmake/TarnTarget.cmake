# What every target of this project is compiled with. Flags are set per target, never globally.

option(TARN_ASSERTIONS "Keep assert() in optimised builds" OFF)

find_program(TARN_CCACHE ccache)

# Linking a hundred test programs takes a minute longer with the system's own linker.
find_program(TARN_LLD ld.lld)

# tarn_target(<target>): C++20, warnings as errors, hidden symbols, position-independent code, the repository root on the
# include path, and the sanitizers of the preset.
function(tarn_target target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
        # Strings have virtual functions and no virtual destructor; containers of them are all right. Clang's alone.
        -Wno-delete-non-abstract-non-virtual-dtor)
    # Tests call from whatever thread they like; what is shipped says which thread it runs on, and clang checks it.
    file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
    if(NOT folder MATCHES "^(tests|bench|fuzz)(/|$)")
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:Clang>:-Wthread-safety>)
    endif()
    if(TARN_ASSERTIONS)
        target_compile_options(${target} PRIVATE -UNDEBUG)
    endif()
    if(TARN_CCACHE)
        set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER "${TARN_CCACHE}")
    elseif(NOT TARN_SANITIZE)
        # A machine that builds once and forgets: a fifth less to compile, and backtraces still have their lines.
        target_compile_options(${target} PRIVATE $<$<CONFIG:RelWithDebInfo>:-g1>)
    endif()
    if(TARN_LLD)
        target_link_options(${target} PRIVATE -fuse-ld=lld)
    endif()
    if(TARN_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link) # what the fuzzer watches to find new ways
    endif()
    if(TARN_SANITIZE)
        # g++ takes the sanitizers' own code for reads of uninitialised members; the plain builds keep the warning.
        target_compile_options(${target} PRIVATE -fsanitize=${TARN_SANITIZE} -fno-sanitize-recover=all
            -fno-omit-frame-pointer
            $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
        target_link_options(${target} PUBLIC -fsanitize=${TARN_SANITIZE})
    endif()
endfunction()

# tarn_precompiled(<target> <kind> <headers>...): the headers that most files of a kind read are read once, by the kind's first
# target: under sanitizers, where everything is built twice more, and on a machine that builds once and forgets, which has no
# compiler cache. The builds of those who work on the project go without, so that a missing include shows.
function(tarn_precompiled target kind)
    if(NOT TARN_SANITIZE AND TARN_CCACHE)
        return()
    endif()
    get_property(maker GLOBAL PROPERTY TARN_PRECOMPILED_${kind})
    if(maker)
        target_precompile_headers(${target} REUSE_FROM ${maker})
    else()
        target_precompile_headers(${target} PRIVATE ${ARGN})
        set_property(GLOBAL PROPERTY TARN_PRECOMPILED_${kind} ${target})
    endif()
endfunction()

# tarn_layer(<name> ON <layer below> [MOC] <sources>...): one folder of the component. Whoever links <name> gets the folder's
# objects, all of them, since some only add themselves to a table, and those of the layers below; nothing above.
function(tarn_layer name)
    cmake_parse_arguments(arg "MOC" "ON" "" ${ARGN})
    add_library(${name}_objects OBJECT ${arg_UNPARSED_ARGUMENTS})
    tarn_target(${name}_objects)
    set_target_properties(${name}_objects PROPERTIES AUTOMOC ${arg_MOC})
    target_link_libraries(${name}_objects PRIVATE tarn_foundation tarn_foundation_qt Qt6::Widgets)
    tarn_precompiled(${name}_objects component <QtWidgets> <algorithm> <functional> <map> <memory> <string> <vector>)
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE $<TARGET_OBJECTS:${name}_objects> ${arg_ON} tarn_foundation_qt tarn_foundation
        Qt6::Widgets)
endfunction()

# tarn_test_target(<target>): what the code of tests is compiled with beyond all other code.
function(tarn_test_target target)
    tarn_target(${target})
    # At -O3 g++ 12 takes the standard library's own "text" + string for a copy onto itself (GCC bug 105651).
    target_compile_options(${target} PRIVATE $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-restrict>)
    # The assertions' code is large, takes long to optimise, and is not what is looked at.
    target_compile_options(${target} PRIVATE -O0)
    if(NOT TARN_SANITIZE)
        target_compile_options(${target} PRIVATE $<$<CONFIG:RelWithDebInfo>:-g1>)
    endif()
endfunction()

# tarn_side_library(<name> <source> LIBS <targets>...): a library beside libtarn.so, which loads it when it is first needed. It
# shows what tarn-<name>.map in its folder names.
function(tarn_side_library name source)
    cmake_parse_arguments(arg "" "" "LIBS" ${ARGN})
    set(target tarn_${name})
    set(map "${CMAKE_CURRENT_SOURCE_DIR}/tarn-${name}.map")
    add_library(${target} MODULE ${source})
    tarn_target(${target})
    target_link_libraries(${target} PRIVATE ${arg_LIBS})
    set_target_properties(${target} PROPERTIES OUTPUT_NAME tarn-${name} LIBRARY_OUTPUT_DIRECTORY "$<TARGET_FILE_DIR:tarn>"
        LINK_DEPENDS "${map}")
    target_link_options(${target} PRIVATE "LINKER:--version-script=${map}")
    if(NOT TARN_SANITIZE)
        target_link_options(${target} PRIVATE "LINKER:-z,defs")
    endif()
endfunction()

# tarn_test_support(<name> <sources>... [LIBS <targets>...]): sources that several test programs share, compiled once. A program
# takes them by naming the target among its LIBS.
function(tarn_test_support name)
    cmake_parse_arguments(arg "" "" "LIBS" ${ARGN})
    add_library(${name} OBJECT ${arg_UNPARSED_ARGUMENTS})
    tarn_test_target(${name})
    target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gtest)
endfunction()

# tarn_test(<name> <sources>... LIBS <targets>... [LABELS <labels>...] [ENV <NAME=value>...]): one GoogleTest program, each of
# its tests known to CTest by name, and each in a process of its own with the given environment. Tests labelled "display" run on
# a virtual X server, which each of them has to itself (tests/e2e/run-test.sh). Under sanitizers, where a process takes half a
# second to start, a program that does not start the component is one test.
function(tarn_test name)
    cmake_parse_arguments(arg "" "" "LIBS;LABELS;ENV" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    tarn_test_target(${name})
    target_link_libraries(${name} PRIVATE ${arg_LIBS} GTest::gtest GTest::gtest_main)
    set(hasLayers FALSE)
    foreach(layer tarn_page tarn_controls tarn_runtime tarn_script tarn_component)
        if(layer IN_LIST arg_LIBS)
            set(hasLayers TRUE)
        endif()
    endforeach()
    if(hasLayers)
        tarn_precompiled(${name} windowtests <QtWidgets> <gtest/gtest.h> <functional> <map> <string> <vector>)
    else()
        tarn_precompiled(${name} tests <gtest/gtest.h> <functional> <map> <string> <vector>)
    endif()
    set_property(GLOBAL APPEND PROPERTY TARN_TESTS ${name})

    # Not by the test property ENVIRONMENT: gtest_discover_tests takes lists of properties apart.
    set(wrapper)
    if(arg_ENV)
        list(APPEND wrapper env ${arg_ENV})
    endif()
    set(properties TIMEOUT 120)
    if(arg_LABELS)
        list(APPEND properties LABELS "${arg_LABELS}")
    endif()
    if("display" IN_LIST arg_LABELS)
        list(APPEND wrapper "${PROJECT_SOURCE_DIR}/tests/e2e/run-test.sh")
        list(APPEND properties RESOURCE_LOCK display) # they click and wait for pixels: one at a time, beside others
    endif()

    set(startsComponent FALSE)
    if("tarn_native_host" IN_LIST arg_LIBS AND ("tarn" IN_LIST arg_LIBS OR hasLayers))
        set(startsComponent TRUE)
    endif()
    if(TARN_SANITIZE AND NOT startsComponent)
        add_test(NAME ${name} COMMAND ${wrapper} $<TARGET_FILE:${name}>)
        set_tests_properties(${name} PROPERTIES ${properties} TIMEOUT 600)
    else()
        set_target_properties(${name} PROPERTIES CROSSCOMPILING_EMULATOR "${wrapper}")
        include(GoogleTest)
        gtest_discover_tests(${name} DISCOVERY_TIMEOUT 30 PROPERTIES ${properties})
    endif()
endfunction()
