# write_information(FILE): writes the bundle's information dictionary. It contains a feed only if HALORIC_FEED_URL is set;
# without a feed the program offers no update checks.
function(write_information file)
    set(HALORIC_FEED_ENTRY "")
    if(HALORIC_FEED_URL)
        string(REPLACE "&" "&amp;" feed "${HALORIC_FEED_URL}")
        string(REPLACE "<" "&lt;" feed "${feed}")
        set(HALORIC_FEED_ENTRY "\t<key>SUFeedURL</key>\n\t<string>${feed}</string>\n")
    endif()
    if(NOT HALORIC_AUTOMATIC_UPDATE_CHECKS)
        string(APPEND HALORIC_FEED_ENTRY "\t<key>SUEnableAutomaticChecks</key>\n\t<false/>\n")
    endif()
    configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/Info.plist.in" "${file}" @ONLY)
endfunction()
