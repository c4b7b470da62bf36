# Haloric.app: the program, its Info.plist, its icon and, if SPARKLE_FRAMEWORK names one, the update framework.
set(HALORIC_FEED_URL "" CACHE STRING "Address of the update feed (SUFeedURL); empty: no update checks")
set(HALORIC_UPDATE_KEY "" CACHE STRING "Public key that updates are signed with (SUPublicEDKey)")
set(SPARKLE_FRAMEWORK "" CACHE PATH "The update framework to put into the bundle; empty: none")
set(HALORIC_BUILD_NUMBER "1" CACHE STRING "CFBundleVersion: raised with each release")

set(packaging "${PROJECT_SOURCE_DIR}/packaging/macos")

# Without a feed the update keys are left out, and the program offers no updates.
set(HALORIC_UPDATE_KEYS "")
if(HALORIC_FEED_URL)
    string(REPLACE "&" "&amp;" feed "${HALORIC_FEED_URL}")
    string(APPEND HALORIC_UPDATE_KEYS "\t<key>SUFeedURL</key>\n\t<string>${feed}</string>\n")
    string(APPEND HALORIC_UPDATE_KEYS "\t<key>SUPublicEDKey</key>\n\t<string>${HALORIC_UPDATE_KEY}</string>\n")
endif()

add_executable(Haloric MACOSX_BUNDLE main.mm "${packaging}/Haloric.icns")
set_source_files_properties("${packaging}/Haloric.icns" PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
target_link_libraries(Haloric PRIVATE haloric_macos haloric_app)
set_target_properties(Haloric PROPERTIES MACOSX_BUNDLE_INFO_PLIST "${packaging}/Info.plist.in")

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
