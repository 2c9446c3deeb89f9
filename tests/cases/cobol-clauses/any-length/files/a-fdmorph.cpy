        01 NAME pic X identified by "NAME".
