# vq_base64_sha256(<result> <file>) sets the SHA-256 of the file in base64, the form in which a content security policy names
# what it lets in.
function(vq_base64_sha256 result file)
    set(digits ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
    file(SHA256 ${file} hash)
    string(APPEND hash 00) # 32 bytes are ten groups of three, and two
    set(text)
    foreach(group RANGE 10)
        math(EXPR begin "${group} * 6")
        string(SUBSTRING ${hash} ${begin} 6 bytes)
        foreach(shift 18 12 6 0)
            math(EXPR digit "(0x${bytes} >> ${shift}) & 63")
            string(SUBSTRING ${digits} ${digit} 1 character)
            string(APPEND text ${character})
        endforeach()
    endforeach()
    string(REGEX REPLACE "A$" "=" text ${text}) # for the byte that was put in
    set(${result} ${text} PARENT_SCOPE)
endfunction()
