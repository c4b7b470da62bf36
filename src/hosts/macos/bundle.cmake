# Haloric.app: the program, its Info.plist, its icon and, if SPARKLE_FRAMEWORK names one, the update framework.
set(HALORIC_FEED_URL "" CACHE STRING "Address of the update feed (SUFeedURL); empty: no update checks")
set(HALORIC_UPDATE_KEY "" CACHE STRING "Public key that updates are signed with (SUPublicEDKey)")
set(HALORIC_UPDATE_SETTINGS "" CACHE STRING
    "Further keys of the update framework for the Info.plist, as KEY=VALUE separated by semicolons; YES and NO are Booleans")
set(SPARKLE_FRAMEWORK "" CACHE PATH "The update framework to put into the bundle; empty: none")
set(HALORIC_BUILD_NUMBER "1" CACHE STRING "CFBundleVersion: raised with each release")

set(packaging "${PROJECT_SOURCE_DIR}/packaging/macos")

# Appends a key and its value to `keys` of the caller.
function(haloric_append_update_key key value)
    if(value MATCHES "^(YES|NO)$")
        string(REPLACE "YES" "<true/>" element "${value}")
        string(REPLACE "NO" "<false/>" element "${element}")
    elseif(value MATCHES "^[0-9]+$")
        set(element "<integer>${value}</integer>")
    else()
        string(REPLACE "&" "&amp;" value "${value}")
        string(REPLACE "<" "&lt;" value "${value}")
        set(element "<string>${value}</string>")
    endif()
    set(keys "${keys}\t<key>${key}</key>\n\t${element}\n" PARENT_SCOPE)
endfunction()

# Without a feed the update keys are left out, and the program offers no updates.
set(keys "")
if(HALORIC_FEED_URL)
    if(NOT HALORIC_UPDATE_KEY)
        message(FATAL_ERROR "HALORIC_FEED_URL is set, but HALORIC_UPDATE_KEY is not: "
            "the update framework refuses updates that no key verifies.")
    endif()
    haloric_append_update_key(SUFeedURL "${HALORIC_FEED_URL}")
    haloric_append_update_key(SUPublicEDKey "${HALORIC_UPDATE_KEY}")
    foreach(setting IN LISTS HALORIC_UPDATE_SETTINGS)
        if(NOT setting MATCHES "^(SU[A-Za-z]+)=(.+)$")
            message(FATAL_ERROR "HALORIC_UPDATE_SETTINGS: \"${setting}\" is not of the form SUKey=VALUE.")
        endif()
        haloric_append_update_key("${CMAKE_MATCH_1}" "${CMAKE_MATCH_2}")
    endforeach()
endif()
set(HALORIC_UPDATE_KEYS "${keys}")

# Written only when its content changes; the bundle's own copy is written at each configuration.
set(information "${CMAKE_CURRENT_BINARY_DIR}/Info.plist")
configure_file("${packaging}/Info.plist.in" "${information}")

add_executable(Haloric MACOSX_BUNDLE main.mm "${packaging}/Haloric.icns")
set_source_files_properties("${packaging}/Haloric.icns" PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
target_link_libraries(Haloric PRIVATE haloric_macos haloric_app)
# Linked again for a change of either, because signing follows linking, and a changed file breaks the seal.
set_target_properties(Haloric PROPERTIES
    MACOSX_BUNDLE_INFO_PLIST "${information}"
    LINK_DEPENDS "${information};${packaging}/Haloric.icns;${packaging}/Haloric.entitlements;${packaging}/sign")

if(HALORIC_FEED_URL AND NOT SPARKLE_FRAMEWORK)
    message(WARNING "HALORIC_FEED_URL is set, but SPARKLE_FRAMEWORK is not: "
        "this build has no update framework, and so no command that checks for updates.")
endif()
if(SPARKLE_FRAMEWORK)
    # cp keeps symbolic links, which CMake's own copying does not; it does not replace existing links, hence the rm.
    add_custom_command(TARGET Haloric POST_BUILD
        COMMAND "${CMAKE_COMMAND}" -E rm -rf "$<TARGET_BUNDLE_CONTENT_DIR:Haloric>/Frameworks"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "$<TARGET_BUNDLE_CONTENT_DIR:Haloric>/Frameworks"
        COMMAND cp -R "${SPARKLE_FRAMEWORK}" "$<TARGET_BUNDLE_CONTENT_DIR:Haloric>/Frameworks/"
        VERBATIM)
endif()

# The linker signs the executable only. macOS keeps a grant only for a bundle that is signed as a whole.
find_program(HALORIC_CODESIGN codesign)
if(HALORIC_CODESIGN)
    add_custom_command(TARGET Haloric POST_BUILD COMMAND "${packaging}/sign" "$<TARGET_BUNDLE_DIR:Haloric>" VERBATIM)
endif()
