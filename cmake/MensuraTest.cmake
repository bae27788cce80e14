# mensura_add_test(NAME SOURCE [GUI] [LIBS ...] [ENVIRONMENT ...])
# One QtTest executable per test file. Core tests link mensura_core only; GUI tests link the
# windows and run on the offscreen platform. Every test gets its own runtime folder so that no
# test ever sees the user's own settings.
function(mensura_add_test name source)
    cmake_parse_arguments(ARG "GUI" "" "LIBS;ENVIRONMENT" ${ARGN})
    add_executable(${name} ${source})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    if(ARG_GUI)
        target_link_libraries(${name} PRIVATE mensura_gui mensura_test_support Qt6::Test ${ARG_LIBS})
    else()
        target_link_libraries(${name} PRIVATE mensura_core Qt6::Test ${ARG_LIBS})
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set(env "QT_QPA_PLATFORM=offscreen" "XDG_RUNTIME_DIR=${CMAKE_BINARY_DIR}/test-runtime"
            "MENSURA_HIVE=${CMAKE_BINARY_DIR}/test-runtime/${name}-hive.reg" ${ARG_ENVIRONMENT})
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${env}" TIMEOUT 120)
endfunction()

file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/test-runtime)
file(CHMOD ${CMAKE_BINARY_DIR}/test-runtime DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
