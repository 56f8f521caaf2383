# Sources of the base layer's painter area: target_sources(mirel7 PRIVATE ...)
