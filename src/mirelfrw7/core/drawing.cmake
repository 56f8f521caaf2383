# The drawing helpers of the element core: target_sources(mirelfrw7 PRIVATE ...)
